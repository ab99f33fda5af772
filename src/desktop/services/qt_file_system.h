#pragma once

#include <QString>

#include "platform/services/system_services.h"

namespace desktop {

/// The files of this computer under the program's own paths.
class QtFileSystem : public platform::FileSystem {
 public:
  std::string Separator() const override;
  bool DirectoryExists(const std::string& path) const override;
  std::string DefaultFolder() const override;
  std::string Native(const std::string& path) const override;
  void MakeFolder(const std::string& path) override;

  /// The place that a path of the program means here. Off Windows a path with a drive letter lies
  /// in the user's home, and a backslash separates folders.
  static QString Resolve(const std::string& path);
};

}  // namespace desktop
