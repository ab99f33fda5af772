#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/local_time.h"
#include "platform/services/file_system.h"

namespace packetroutines {

/// A text recording whose samples nobody has looked through: neither the stop, as where another tab
/// or a power cut has ended it, nor a later check.
struct UncheckedRecording {
  platform::LocalTime Start;
  /// Its files that hold something and have no log.
  std::vector<std::string> Names;
};

/// The newest one in a folder, by the moments in the names of the files; nothing where there is
/// none. Names count exactly as a recording gives them, and `leftOut` tells of files that are not
/// wanted.
std::optional<UncheckedRecording> FindUnchecked(
    const platform::FileSystem& files, const std::string& folder,
    const std::function<bool(const std::string& name)>& leftOut);

}  // namespace packetroutines
