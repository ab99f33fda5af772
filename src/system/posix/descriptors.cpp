#include "system/posix/descriptors.h"

#include <unistd.h>

#include <limits>

namespace host {

void CloseDescriptorsAtExec() {
  // A kernel that does not know the call leaves to children what it left to them before; the raw
  // socket is none of it.
  close_range(STDERR_FILENO + 1, std::numeric_limits<unsigned>::max(), CLOSE_RANGE_CLOEXEC);
}

}  // namespace host
