#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace platform {

/// The printers that the program can print on; the current one is the program's own choice.
class Printers {
 public:
  virtual ~Printers() = default;
  virtual std::vector<std::string> Names() const = 0;
  /// Name of the current printer; failure 484 where there is no printer.
  virtual std::string Current() const = 0;
  /// Makes the printer at a 0-based index the current one.
  virtual void MakeCurrent(std::int32_t index) = 0;
};

/// All work on files and folders. Paths are the program's own: off Windows a path such as
/// `c:\StoredData` stands for the folder `StoredData` in the user's home.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  /// "\" on Windows, "/" elsewhere.
  virtual std::string Separator() const = 0;
  virtual bool DirectoryExists(const std::string& path) const = 0;
  /// The folder for data as long as the user chose no other.
  virtual std::string DefaultFolder() const = 0;
  /// The place that a path means here, in the platform's own writing.
  virtual std::string Native(const std::string& path) const = 0;
  /// Makes a folder and those above it, where they are missing; what cannot be made stays missing.
  virtual void MakeFolder(const std::string& path) = 0;
};

/// The dialog that selects a folder of the file system.
class FolderDialog {
 public:
  virtual ~FolderDialog() = default;
  /// The chosen folder; nothing where the user cancelled. The dialog opens at the folder `present`,
  /// where there is one.
  virtual std::optional<std::string> Browse(const std::string& title,
                                            const std::string& present) = 0;
};

/// The desktop's "open" of a document or a link.
class ShellLinks {
 public:
  virtual ~ShellLinks() = default;
  /// A call that fails is not reported.
  virtual void Open(const std::string& target) = 0;
};

}  // namespace platform
