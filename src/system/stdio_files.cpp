#include "system/stdio_files.h"

#include <cerrno>
#include <cstdio>
#include <utility>

#include "base/failure.h"
#include "system/error_number.h"
#include "system/file_stream.h"

namespace host {

namespace failure = platform::failure;
using platform::Failure;

namespace {

/// An open file of the C library, closed at the end at the latest.
class Stream {
 public:
  Stream(const std::filesystem::path& place, const char* mode, std::int32_t missing) {
    errno = 0;
    file_ = OpenStream(place, mode);
    if (file_ == nullptr) throw Failure(FailureNumber(errno, missing));
    std::setvbuf(file_, nullptr, _IONBF, 0);
  }
  ~Stream() {
    if (file_ != nullptr) std::fclose(file_);
  }
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;

  void Write(std::string_view bytes) {
    if (file_ == nullptr) throw Failure(failure::BadFileNumber);
    errno = 0;
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size()) Raise();
  }

  std::size_t Read(std::span<char> piece) {
    errno = 0;
    const std::size_t count = std::fread(piece.data(), 1, piece.size(), file_);
    if (count == 0 && std::ferror(file_) != 0) Raise();
    return count;
  }

  void Close() {
    if (file_ == nullptr) throw Failure(failure::BadFileNumber);
    errno = 0;
    if (std::fclose(std::exchange(file_, nullptr)) != 0) Raise();
  }

 private:
  [[noreturn]] static void Raise() { throw Failure(FailureNumber(errno, failure::PathNotFound)); }

  std::FILE* file_ = nullptr;
};

class StdioOutput : public platform::OutputFile {
 public:
  StdioOutput(const std::filesystem::path& place, const char* mode)
      : stream_(place, mode, failure::PathNotFound) {}
  void Write(std::string_view bytes) override { stream_.Write(bytes); }
  void Close() override { stream_.Close(); }

 private:
  Stream stream_;
};

class StdioInput : public platform::InputFile {
 public:
  explicit StdioInput(const std::filesystem::path& place)
      : stream_(place, "rb", failure::FileNotFound) {}
  std::size_t Read(std::span<char> piece) override { return stream_.Read(piece); }

 private:
  Stream stream_;
};

}  // namespace

std::unique_ptr<platform::OutputFile> OpenToAppend(const std::filesystem::path& place) {
  return std::make_unique<StdioOutput>(place, "ab");
}

std::unique_ptr<platform::OutputFile> OpenAnew(const std::filesystem::path& place) {
  return std::make_unique<StdioOutput>(place, "wb");
}

std::unique_ptr<platform::OutputFile> OpenNew(const std::filesystem::path& place) {
  return std::make_unique<StdioOutput>(place, "wbx");
}

std::unique_ptr<platform::OutputFile> OpenToAmend(const std::filesystem::path& place) {
  return std::make_unique<StdioOutput>(place, "r+b");
}

std::unique_ptr<platform::InputFile> OpenToRead(const std::filesystem::path& place) {
  return std::make_unique<StdioInput>(place);
}

}  // namespace host
