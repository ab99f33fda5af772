#include "system/process.h"

#include <cstdio>
#include <cstdlib>

#ifdef __linux__
#include "system/posix/descriptors.h"
#endif

namespace host {

void LeaveProcess(int exitCode) {
  std::fflush(nullptr);
  std::_Exit(exitCode);
}

void KeepDescriptorsFromChildren() {
#ifdef __linux__
  CloseDescriptorsAtExec();
#endif
}

}  // namespace host
