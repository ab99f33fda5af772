#include "support/failing_files.h"

#include <utility>

#include "base/failure.h"

namespace support {

class FailingFiles::Output : public platform::OutputFile {
 public:
  Output(FailingFiles& files, std::unique_ptr<platform::OutputFile> file)
      : files_(files), file_(std::move(file)) {}

  void Write(std::string_view bytes) override {
    try {
      files_.Meet(files_.Writes, files_.FailingWrite);
      if (files_.AlsoBehind && files_.FailingWrite > 0 && files_.Writes > files_.FailingWrite) {
        throw platform::Failure(files_.Number);
      }
    } catch (const platform::Failure&) {
      if (!files_.FailsWhole) file_->Write(bytes.substr(0, bytes.size() / 2));
      throw;
    }
    file_->Write(bytes);
  }

  void Close() override {
    file_->Close();
    files_.Meet(files_.Closes, files_.FailingClose);
  }

 private:
  FailingFiles& files_;
  std::unique_ptr<platform::OutputFile> file_;
};

void FailingFiles::Meet(int& count, int failing) const {
  if (++count == failing) throw platform::Failure(Number);
}

void FailingFiles::Change(int& count, int failing) const {
  Meet(count, failing);
  if (Refusal != 0) throw platform::Failure(Refusal);
}

void FailingFiles::DeleteFile(const std::string& path) {
  Change(Deletes, FailingDelete);
  files_.DeleteFile(path);
}

void FailingFiles::Rename(const std::string& from, const std::string& to) {
  Change(Renames, FailingRename);
  files_.Rename(from, to);
}

bool FailingFiles::IsApart(const std::string& path) const {
  return !Apart.empty() && path.find(Apart) != std::string::npos;
}

bool FailingFiles::MakeNew(const std::string& path) {
  if (IsApart(path)) {
    if (Refusal != 0) throw platform::Failure(Refusal);
  } else {
    Change(Opens, FailingOpen);
  }
  return files_.MakeNew(path);
}

std::unique_ptr<platform::OutputFile> FailingFiles::Append(const std::string& path) {
  if (IsApart(path)) {
    if (Refusal != 0) throw platform::Failure(Refusal);
    return files_.Append(path);
  }
  Change(Opens, FailingOpen);
  return std::make_unique<Output>(*this, files_.Append(path));
}

std::unique_ptr<platform::OutputFile> FailingFiles::Create(const std::string& path) {
  Change(Opens, FailingOpen);
  return std::make_unique<Output>(*this, files_.Create(path));
}

std::unique_ptr<platform::OutputFile> FailingFiles::Amend(const std::string& path) {
  Change(Opens, FailingOpen);
  return std::make_unique<Output>(*this, files_.Amend(path));
}

std::unique_ptr<platform::InputFile> FailingFiles::Read(const std::string& path) {
  Meet(Reads, FailingRead);
  return files_.Read(path);
}

}  // namespace support
