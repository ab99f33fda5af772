#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/local_time.h"

namespace platform {

/// A file that is open for writing. Nothing is held back: one `Write` is one call of the system,
/// and a file that was closed stands complete. One that is let go without `Close` is closed as
/// well, but tells no failure.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  /// Writes all bytes: failure 61 where the disk is full, 52 behind `Close`.
  virtual void Write(std::string_view bytes) = 0;
  /// Failure 61 where the disk is full, 52 where the file is closed already.
  virtual void Close() = 0;
};

/// A file that is open for reading.
class InputFile {
 public:
  virtual ~InputFile() = default;
  /// Bytes read into the piece; 0 at the end.
  virtual std::size_t Read(std::span<char> piece) = 0;
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
  /// Hands over the names of what lies in a folder, one by one and in no order; none where it
  /// cannot be read. What lies in the folders below it is not looked at.
  virtual void ListNames(const std::string& folder,
                         const std::function<void(std::string_view name)>& take) const = 0;

  virtual bool FileExists(const std::string& path) const = 0;
  /// In bytes; 0 where there is no such file.
  virtual std::int64_t FileSize(const std::string& path) const = 0;
  /// What the file system that holds a path still takes of this user, in bytes; nothing where it
  /// does not tell.
  virtual std::optional<std::int64_t> FreeSpace(const std::string& path) const = 0;
  /// When a file was written last, by the calendar; failure 53 where there is no such file.
  virtual LocalTime LastWrite(const std::string& path) const = 0;
  /// Failure 53 where there is no such file.
  virtual void DeleteFile(const std::string& path) = 0;
  /// Gives a file the name of another one, which is gone with that: whoever reads under that name
  /// meets the whole of the one or the whole of the other. Failure 53 where there is no such file.
  virtual void Rename(const std::string& from, const std::string& to) = 0;
  /// Makes an empty file; false where there is one of that name already, whoever has made it in the
  /// very same moment. What cannot be made raises the failure of its reason.
  virtual bool MakeNew(const std::string& path) = 0;
  /// Opens a file to write behind its end; one that is missing is made. What cannot be opened
  /// raises the failure of its reason, such as 76 for a folder that is missing.
  virtual std::unique_ptr<OutputFile> Append(const std::string& path) = 0;
  /// Opens a new file; an older one of that name is emptied.
  virtual std::unique_ptr<OutputFile> Create(const std::string& path) = 0;
  /// Opens a file to write over its beginning: what was there behind that stays. Failure 76 where
  /// there is no such file.
  virtual std::unique_ptr<OutputFile> Amend(const std::string& path) = 0;
  /// Opens a file to read; failure 53 where it is missing.
  virtual std::unique_ptr<InputFile> Read(const std::string& path) = 0;
};

}  // namespace platform
