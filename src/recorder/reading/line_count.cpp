#include "recorder/reading/line_count.h"

#include <cstring>
#include <span>
#include <vector>

#include "base/number_text.h"
#include "recorder/reading/line_reader.h"

namespace packetroutines {

namespace {

std::int64_t CountReturns(std::span<const char> bytes) {
  std::int64_t count = 0;
  const char* at = bytes.data();
  const char* const end = at + bytes.size();
  const auto find = [&] {
    return std::memchr(at, CarriageReturn, static_cast<std::size_t>(end - at));
  };
  for (const void* found = find(); found != nullptr; found = find()) {
    ++count;
    at = static_cast<const char*>(found) + 1;
  }
  return count;
}

}  // namespace

std::int32_t CountFileLines(platform::FileSystem& files, const std::string& path,
                            AnalysisPass& pass) {
  if (!files.FileExists(path)) files.Append(path)->Close();
  const std::unique_ptr<platform::InputFile> file = files.Read(path);
  std::vector<char> piece(PieceSize);
  std::int64_t count = 0;
  while (const std::size_t bytes = file->Read(piece)) {
    count += CountReturns({piece.data(), bytes});
    pass.Advance(static_cast<std::int64_t>(bytes));
  }
  return platform::Narrow<std::int32_t>(count);
}

}  // namespace packetroutines
