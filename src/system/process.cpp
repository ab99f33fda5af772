#include "system/process.h"

#include <cstdio>
#include <cstdlib>

#ifdef __linux__
#include "system/posix/descriptors.h"
#include "system/posix/large_memory.h"
#endif

namespace host {

void LeaveProcess(int exitCode) {
  std::fflush(nullptr);
  std::_Exit(exitCode);
}

void GiveLargeMemoryBack() {
#ifdef __linux__
  MapLargeMemory();
#endif
}

void KeepDescriptorsFromChildren() {
#ifdef __linux__
  CloseDescriptorsAtExec();
#endif
}

}  // namespace host
