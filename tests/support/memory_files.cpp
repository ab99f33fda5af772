#include "support/memory_files.h"

#include <algorithm>

#include "base/failure.h"

namespace support {

void MemoryOutput::Write(std::string_view bytes) {
  if (closed_) throw platform::Failure(platform::failure::BadFileNumber);
  const auto file = contents_.find(path_);
  if (file != contents_.end()) Put(file->second, bytes);
}

void MemoryOutput::Close() {
  if (closed_) throw platform::Failure(platform::failure::BadFileNumber);
  closed_ = true;
}

std::size_t MemoryInput::Read(std::span<char> piece) {
  const std::size_t count = std::min(piece.size(), bytes_.size() - at_);
  std::copy_n(bytes_.data() + at_, count, piece.data());
  at_ += count;
  return count;
}

}  // namespace support
