#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/services/file_system.h"

namespace packetroutines {

/// The file number under which the text and COMTRADE files are written and the log is built.
inline constexpr std::int16_t TextFile = 1;

/// The files that the program has open for writing, by number. A number whose file was never closed
/// stays taken: what opens under it next fails with 55.
class FileNumbers {
 public:
  explicit FileNumbers(platform::FileSystem& files) : files_(files) {}

  /// A number that is free. The text files' own one is never among them, and one that was closed
  /// comes back as late as possible, so that a second closing does not meet another's file.
  std::int16_t Next();
  void OpenToAppend(std::int16_t number, const std::string& path);
  /// An older file of that name is emptied.
  void OpenAnew(std::int16_t number, const std::string& path);
  void DeleteIfThere(const std::string& path);
  /// The same where nobody is there to tell of a failure.
  void DeleteQuietly(const std::string& path);
  /// 0 where there is no such file.
  std::int64_t SizeOf(const std::string& path) const {
    return files_.FileExists(path) ? files_.FileSize(path) : 0;
  }
  bool IsOpen(std::int16_t number) const { return open_.count(number) > 0; }
  /// Failure 52 where no file is open under the number.
  void Write(std::int16_t number, std::string_view bytes);
  /// Frees the number in any case. One that is free already is no failure.
  void Close(std::int16_t number);
  /// The same where nobody is there to tell of a failure.
  void CloseQuietly(std::int16_t number);
  /// Closes whatever is open, without a word about what fails.
  void CloseAll();

 private:
  void DemandFree(std::int16_t number) const;

  platform::FileSystem& files_;
  std::map<std::int16_t, std::unique_ptr<platform::OutputFile>> open_;
  std::int16_t last_ = TextFile;
};

}  // namespace packetroutines
