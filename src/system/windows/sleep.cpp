#include "system/sleep.h"

#include <windows.h>

namespace host {

namespace {

/// Lasts until it is let go, at the end of the thread that asked for it at the latest.
class WakeRequest : public platform::SleepInhibitor {
 public:
  WakeRequest() = default;
  WakeRequest(const WakeRequest&) = delete;
  WakeRequest& operator=(const WakeRequest&) = delete;
  ~WakeRequest() override { Release(); }

  void Inhibit(const std::string&) override {
    SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED);
  }
  void Release() override { SetThreadExecutionState(ES_CONTINUOUS); }
};

}  // namespace

std::unique_ptr<platform::SleepInhibitor> NewSleepInhibitor() {
  return std::make_unique<WakeRequest>();
}

}  // namespace host
