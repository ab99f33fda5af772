#include "system/posix/large_memory.h"

#include <malloc.h>

namespace host {

void MapLargeMemory() {
#ifdef __GLIBC__
  constexpr int Large = 1024 * 1024;
  mallopt(M_MMAP_THRESHOLD, Large);
#endif
}

}  // namespace host
