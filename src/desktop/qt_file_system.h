#pragma once

#include <QString>

#include "platform/system_services.h"

namespace desktop {

/// The files of this computer under the program's own paths.
class QtFileSystem : public platform::FileSystem {
 public:
  std::string Separator() const override;
  bool DirectoryExists(const std::string& path) const override;

  /// The place that a path of the program means here. Off Windows a path with a drive letter lies
  /// in the user's home, and a backslash separates folders.
  static QString Resolve(const std::string& path);
};

}  // namespace desktop
