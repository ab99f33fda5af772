#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/services/file_system.h"

namespace support {

/// The contents of the files of a played platform, by path.
using Contents = std::map<std::string, std::string>;

/// The file that tells what happened to a recording, which stands beside any.
inline bool IsEventsFile(const std::string& path) {
  return path.find("Events SV record") != std::string::npos;
}

/// A file of a played platform, open for writing. It writes to its place even where another has
/// opened the same file anew meanwhile; what is written to a file that was deleted is lost without
/// a failure, as on a real disk.
class MemoryOutput : public platform::OutputFile {
 public:
  MemoryOutput(Contents& contents, std::string path)
      : contents_(contents), path_(std::move(path)) {}
  void Write(std::string_view bytes) override;
  void Close() override;

 protected:
  /// Puts bytes into the file.
  virtual void Put(std::string& content, std::string_view bytes) { content += bytes; }

 private:
  Contents& contents_;
  std::string path_;
  bool closed_ = false;
};

/// One that was opened to write over its beginning.
class MemoryAmendment : public MemoryOutput {
 public:
  using MemoryOutput::MemoryOutput;

 protected:
  void Put(std::string& content, std::string_view bytes) override {
    content.replace(at_, bytes.size(), bytes);
    at_ += bytes.size();
  }

 private:
  std::size_t at_ = 0;
};

/// A file of a played platform, open for reading.
class MemoryInput : public platform::InputFile {
 public:
  explicit MemoryInput(std::string bytes) : bytes_(std::move(bytes)) {}
  std::size_t Read(std::span<char> piece) override;

 private:
  std::string bytes_;
  std::size_t at_ = 0;
};

}  // namespace support
