#include "recorder/line_count.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <span>
#include <vector>

#include "base/number_text.h"

namespace packetroutines {

namespace {

constexpr std::size_t PieceSize = std::size_t{256} * 1024;
constexpr char CarriageReturn = '\r';

/// Counts in bytes side by side, which the processor adds many at a time; each is emptied before it
/// could overflow.
std::int64_t CountReturns(std::span<const char> bytes) {
  constexpr std::size_t Lanes = 64;
  constexpr std::size_t Rounds = 255;
  std::int64_t count = 0;
  while (bytes.size() >= Lanes) {
    const std::size_t rounds = std::min(bytes.size() / Lanes, Rounds);
    std::array<std::uint8_t, Lanes> counts{};
    for (std::size_t round = 0; round < rounds; ++round) {
      const char* const row = bytes.data() + round * Lanes;
      for (std::size_t lane = 0; lane < Lanes; ++lane) {
        counts[lane] = static_cast<std::uint8_t>(counts[lane] + (row[lane] == CarriageReturn));
      }
    }
    count = std::accumulate(counts.begin(), counts.end(), count);
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
