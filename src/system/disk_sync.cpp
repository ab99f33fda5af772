#include "system/disk_sync.h"

#ifndef _WIN32
#include "system/posix/disk_syncer.h"
#endif

namespace host {

std::unique_ptr<platform::DiskSync> MakeDiskSync() {
#ifdef _WIN32
  return nullptr;
#else
  return std::make_unique<DiskSyncer>();
#endif
}

}  // namespace host
