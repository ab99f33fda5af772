#include "recorder/reading/line_count.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <span>
#include <vector>

#include "base/number_text.h"
#include "recorder/reading/line_reader.h"

namespace packetroutines {

namespace {

/// Many at a time: each lane counts as far as its byte reaches.
std::int64_t CountReturns(std::span<const char> bytes) {
  constexpr std::size_t Lanes = 64;
  constexpr std::size_t Rounds = 255;
  std::int64_t count = 0;
  while (bytes.size() >= Lanes) {
    std::array<std::uint8_t, Lanes> found{};
    const std::size_t rounds = std::min(bytes.size() / Lanes, Rounds);
    for (std::size_t round = 0; round < rounds; ++round) {
      const char* const part = bytes.data() + round * Lanes;
      for (std::size_t lane = 0; lane < Lanes; ++lane) {
        const int met = part[lane] == CarriageReturn ? 1 : 0;
        found[lane] = static_cast<std::uint8_t>(found[lane] + met);
      }
    }
    count = std::accumulate(found.begin(), found.end(), count);
    bytes = bytes.subspan(rounds * Lanes);
  }
  return count + std::count(bytes.begin(), bytes.end(), CarriageReturn);
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
