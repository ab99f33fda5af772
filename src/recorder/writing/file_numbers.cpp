#include "recorder/writing/file_numbers.h"

#include <utility>

#include "base/failure.h"

namespace packetroutines {

using platform::Failure;
namespace failure = platform::failure;

namespace {

constexpr std::int16_t LastNumber = 511;

}  // namespace

std::int16_t FileNumbers::Next() {
  for (int tries = TextFile; tries < LastNumber; ++tries) {
    last_ = last_ < LastNumber ? static_cast<std::int16_t>(last_ + 1) : TextFile + 1;
    if (!IsOpen(last_)) return last_;
  }
  throw Failure(failure::TooManyFiles);
}

void FileNumbers::DemandFree(std::int16_t number) const {
  if (IsOpen(number)) throw Failure(failure::FileAlreadyOpen);
}

void FileNumbers::OpenToAppend(std::int16_t number, const std::string& path) {
  DemandFree(number);
  open_[number] = files_.Append(path);
}

void FileNumbers::OpenAnew(std::int16_t number, const std::string& path) {
  DemandFree(number);
  open_[number] = files_.Create(path);
}

void FileNumbers::DeleteIfThere(const std::string& path) {
  if (files_.FileExists(path)) files_.DeleteFile(path);
}

void FileNumbers::DeleteQuietly(const std::string& path) {
  try {
    DeleteIfThere(path);
  } catch (const Failure&) {
    // It stays, and there is nobody to tell.
  }
}

void FileNumbers::Write(std::int16_t number, std::string_view bytes) {
  const auto file = open_.find(number);
  if (file == open_.end()) throw Failure(failure::BadFileNumber);
  file->second->Write(bytes);
}

void FileNumbers::Close(std::int16_t number) {
  const auto file = open_.find(number);
  if (file == open_.end()) return;
  const std::unique_ptr<platform::OutputFile> closing = std::move(file->second);
  open_.erase(file);
  closing->Close();
}

void FileNumbers::CloseQuietly(std::int16_t number) {
  try {
    Close(number);
  } catch (const Failure&) {
    // The number is free, and there is nobody to tell.
  }
}

void FileNumbers::CloseAll() {
  while (!open_.empty()) CloseQuietly(open_.begin()->first);
}

}  // namespace packetroutines
