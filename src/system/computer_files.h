#pragma once

#include "platform/services/file_system.h"

namespace host {

/// The files of this computer under the program's own paths.
class ComputerFiles : public platform::FileSystem {
 public:
  std::string Separator() const override;
  bool DirectoryExists(const std::string& path) const override;
  std::string DefaultFolder() const override;
  std::string Native(const std::string& path) const override;
  void MakeFolder(const std::string& path) override;
  void ListNames(const std::string& folder,
                 const std::function<void(std::string_view name)>& take) const override;
  bool FileExists(const std::string& path) const override;
  std::int64_t FileSize(const std::string& path) const override;
  std::optional<std::int64_t> FreeSpace(const std::string& path) const override;
  platform::LocalTime LastWrite(const std::string& path) const override;
  void DeleteFile(const std::string& path) override;
  void Rename(const std::string& from, const std::string& to) override;
  bool MakeNew(const std::string& path) override;
  std::unique_ptr<platform::OutputFile> Append(const std::string& path) override;
  std::unique_ptr<platform::OutputFile> Create(const std::string& path) override;
  std::unique_ptr<platform::OutputFile> Amend(const std::string& path) override;
  std::unique_ptr<platform::InputFile> Read(const std::string& path) override;
};

}  // namespace host
