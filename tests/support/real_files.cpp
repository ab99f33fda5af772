#include "support/real_files.h"

#include <fstream>
#include <iterator>
#include <random>

#include "base/failure.h"

namespace support {

using platform::Failure;
namespace failure = platform::failure;

namespace {

class RealOutput : public platform::OutputFile {
 public:
  RealOutput(const std::string& path, std::ios::openmode mode)
      : file_(path, std::ios::binary | std::ios::out | mode) {
    if (!file_) throw Failure(failure::PathNotFound);
  }
  void Write(std::string_view bytes) override {
    if (!file_.is_open()) throw Failure(failure::BadFileNumber);
    file_.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush();
    if (!file_) throw Failure(failure::DiskFull);
  }
  void Close() override {
    if (!file_.is_open()) throw Failure(failure::BadFileNumber);
    file_.close();
    if (!file_) throw Failure(failure::DiskFull);
  }

 private:
  std::ofstream file_;
};

class RealInput : public platform::InputFile {
 public:
  explicit RealInput(const std::string& path) : file_(path, std::ios::binary) {
    if (!file_) throw Failure(failure::FileNotFound);
  }
  std::size_t Read(std::span<char> piece) override {
    file_.read(piece.data(), static_cast<std::streamsize>(piece.size()));
    return static_cast<std::size_t>(file_.gcount());
  }

 private:
  std::ifstream file_;
};

}  // namespace

TemporaryFolder::TemporaryFolder()
    : path_(std::filesystem::temp_directory_path() /
            ("vornik-" + std::to_string(std::random_device()()))) {
  std::filesystem::create_directories(path_);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

bool RealFiles::DirectoryExists(const std::string& path) const {
  return std::filesystem::is_directory(path);
}

std::string RealFiles::DefaultFolder() const {
  return std::filesystem::temp_directory_path().string();
}

void RealFiles::MakeFolder(const std::string& path) {
  std::error_code ignored;
  std::filesystem::create_directories(path, ignored);
}

void RealFiles::ListNames(const std::string& folder,
                          const std::function<void(std::string_view name)>& take) const {
  if (!DirectoryExists(folder)) return;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    take(entry.path().filename().string());
  }
}

platform::LocalTime RealFiles::LastWrite(const std::string& path) const {
  if (!FileExists(path)) throw Failure(failure::FileNotFound);
  return {2024, 3, 9, 14, 5, 7};
}

bool RealFiles::FileExists(const std::string& path) const {
  return std::filesystem::is_regular_file(path);
}

std::int64_t RealFiles::FileSize(const std::string& path) const {
  return FileExists(path) ? static_cast<std::int64_t>(std::filesystem::file_size(path)) : 0;
}

std::optional<std::int64_t> RealFiles::FreeSpace(const std::string& path) const {
  return static_cast<std::int64_t>(std::filesystem::space(path).available);
}

void RealFiles::DeleteFile(const std::string& path) {
  if (!std::filesystem::remove(path)) throw Failure(failure::FileNotFound);
}

void RealFiles::Rename(const std::string& from, const std::string& to) {
  if (!FileExists(from)) throw Failure(failure::FileNotFound);
  std::filesystem::rename(from, to);
}

bool RealFiles::MakeNew(const std::string& path) {
  if (FileExists(path)) return false;
  Append(path);
  return true;
}

std::unique_ptr<platform::OutputFile> RealFiles::Append(const std::string& path) {
  return std::make_unique<RealOutput>(path, std::ios::app);
}

std::unique_ptr<platform::OutputFile> RealFiles::Create(const std::string& path) {
  return std::make_unique<RealOutput>(path, std::ios::trunc);
}

std::unique_ptr<platform::OutputFile> RealFiles::Amend(const std::string& path) {
  if (!FileExists(path)) throw Failure(failure::PathNotFound);
  return std::make_unique<RealOutput>(path, std::ios::in);
}

std::unique_ptr<platform::InputFile> RealFiles::Read(const std::string& path) {
  return std::make_unique<RealInput>(path);
}

std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace support
