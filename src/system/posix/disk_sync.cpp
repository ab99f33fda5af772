#include "system/disk_sync.h"

#include "system/posix/disk_syncer.h"

namespace host {

std::unique_ptr<platform::DiskSync> MakeDiskSync() {
  return std::make_unique<DiskSyncer>();
}

}  // namespace host
