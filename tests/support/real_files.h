#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "platform/services/file_system.h"

namespace support {

/// A folder of its own below the system's folder for temporary files, gone at the end. Its paths
/// are written with slashes on every system, as those of `RealFiles` are.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string Path() const { return path_.generic_string(); }
  /// The path of a file in the folder.
  std::string File(const std::string& name) const { return (path_ / name).generic_string(); }

 private:
  std::filesystem::path path_;
};

/// The files of this computer, paths as they stand.
class RealFiles : public platform::FileSystem {
 public:
  std::string Separator() const override { return "/"; }
  bool DirectoryExists(const std::string& path) const override;
  std::string DefaultFolder() const override;
  std::string Native(const std::string& path) const override { return path; }
  void MakeFolder(const std::string& path) override;
  void ListNames(const std::string& folder,
                 const std::function<void(std::string_view name)>& take) const override;
  /// The same moment for all files.
  platform::LocalTime LastWrite(const std::string& path) const override;
  bool FileExists(const std::string& path) const override;
  std::int64_t FileSize(const std::string& path) const override;
  std::optional<std::int64_t> FreeSpace(const std::string& path) const override;
  void DeleteFile(const std::string& path) override;
  void Rename(const std::string& from, const std::string& to) override;
  bool MakeNew(const std::string& path) override;
  std::unique_ptr<platform::OutputFile> Append(const std::string& path) override;
  std::unique_ptr<platform::OutputFile> Create(const std::string& path) override;
  std::unique_ptr<platform::OutputFile> Amend(const std::string& path) override;
  std::unique_ptr<platform::InputFile> Read(const std::string& path) override;
};

/// The bytes of a file as they stand on disk; nothing where there is none.
std::string BytesOf(const std::string& path);

}  // namespace support
