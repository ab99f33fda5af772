#include "system/disk_sync.h"

namespace host {

std::unique_ptr<platform::DiskSync> MakeDiskSync() {
  return nullptr;
}

}  // namespace host
