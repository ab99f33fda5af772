#include "system/sleep.h"

#ifdef __linux__
#include "system/posix/login_manager.h"
#endif

namespace host {

std::unique_ptr<platform::SleepInhibitor> NewSleepInhibitor() {
#ifdef __linux__
  return std::make_unique<LoginManager>();
#else
  return nullptr;
#endif
}

}  // namespace host
