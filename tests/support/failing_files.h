#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/services/file_system.h"

namespace support {

/// Another file service that fails where the test wants it to.
class FailingFiles : public platform::FileSystem {
 public:
  explicit FailingFiles(platform::FileSystem& files) : files_(files) {}

  std::string Separator() const override { return files_.Separator(); }
  bool DirectoryExists(const std::string& path) const override {
    return files_.DirectoryExists(path);
  }
  std::string DefaultFolder() const override { return files_.DefaultFolder(); }
  std::string Native(const std::string& path) const override { return files_.Native(path); }
  void MakeFolder(const std::string& path) override { files_.MakeFolder(path); }
  void ListNames(const std::string& folder,
                 const std::function<void(std::string_view name)>& take) const override {
    ++Lists;
    files_.ListNames(folder, take);
  }
  platform::LocalTime LastWrite(const std::string& path) const override {
    return files_.LastWrite(path);
  }
  bool FileExists(const std::string& path) const override { return files_.FileExists(path); }
  std::int64_t FileSize(const std::string& path) const override { return files_.FileSize(path); }
  std::optional<std::int64_t> FreeSpace(const std::string& path) const override {
    return files_.FreeSpace(path);
  }
  void DeleteFile(const std::string& path) override;
  void Rename(const std::string& from, const std::string& to) override;
  bool MakeNew(const std::string& path) override;
  std::unique_ptr<platform::OutputFile> Append(const std::string& path) override;
  std::unique_ptr<platform::OutputFile> Create(const std::string& path) override;
  std::unique_ptr<platform::OutputFile> Amend(const std::string& path) override;
  std::unique_ptr<platform::InputFile> Read(const std::string& path) override;

  /// Files with this in their names are not counted, so that a scene counts the writing of samples;
  /// they fail where a medium is refused.
  std::string Apart = "Events ";
  /// The write that fails, counted from 1 over all files; 0 for none. It stores the first half of
  /// its bytes, as a disk does that fills up.
  int FailingWrite = 0;
  /// All behind it fail, too.
  bool AlsoBehind = false;
  /// It stores none of them, as a medium does that is not ready.
  bool FailsWhole = false;
  /// The opening for writing that fails, counted likewise.
  int FailingOpen = 0;
  /// The closing that fails, counted likewise. The file is closed all the same.
  int FailingClose = 0;
  /// The deleting that fails, counted likewise.
  int FailingDelete = 0;
  /// The renaming that fails, counted likewise.
  int FailingRename = 0;
  /// The opening for reading that fails, counted likewise.
  int FailingRead = 0;
  /// The number of the failure.
  std::int32_t Number = 61;
  /// With another number than 0 every opening for writing and every deleting fails with it, as on a
  /// medium that became read-only.
  std::int32_t Refusal = 0;

  /// What was asked for so far.
  int Writes = 0;
  int Opens = 0;
  int Closes = 0;
  int Deletes = 0;
  int Renames = 0;
  int Reads = 0;
  /// How often a folder was looked through.
  mutable int Lists = 0;

 private:
  class Output;

  bool IsApart(const std::string& path) const;
  void Meet(int& count, int failing) const;
  void Change(int& count, int failing) const;

  platform::FileSystem& files_;
};

}  // namespace support
