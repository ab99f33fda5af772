#pragma once

#include <cstdint>
#include <functional>
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

/// The dialog that selects a folder of the file system.
class FolderDialog {
 public:
  virtual ~FolderDialog() = default;
  /// The chosen folder; nothing where the user cancelled. The dialog opens at the folder `present`,
  /// where there is one.
  virtual std::optional<std::string> Browse(const std::string& title,
                                            const std::string& present) = 0;
};

/// What came of opening a file.
namespace open_code {

inline constexpr std::int32_t FileNotFound = 2;
inline constexpr std::int32_t PathNotFound = 3;
inline constexpr std::int32_t AccessDenied = 5;
/// No viewer knows files of this kind.
inline constexpr std::int32_t NoViewer = 31;
/// The file was handed to its viewer.
inline constexpr std::int32_t Opened = 33;

}  // namespace open_code

/// The desktop's "open" of a document or a link. Its viewer comes in a window of its usual size.
class ShellLinks {
 public:
  virtual ~ShellLinks() = default;
  /// A call that fails is not reported.
  virtual void Open(const std::string& target) = 0;
  /// What came of opening a file: a code above 32 where it was handed over, else one of
  /// `open_code`.
  using Told = std::function<void(std::int32_t code)>;
  /// Opens a file or a folder in the viewer of its kind and waits for nobody: `told` is called at
  /// once where the file itself is in the way, else when the desktop has its answer, which may be
  /// much later. It is not called while a box stands.
  virtual void OpenFile(const std::string& path, Told told) = 0;
};

}  // namespace platform
