#pragma once

#include <memory>

#include "platform/services/disk_sync.h"

namespace host {

/// What brings files to the disk on this computer; null where there is none.
std::unique_ptr<platform::DiskSync> MakeDiskSync();

}  // namespace host
