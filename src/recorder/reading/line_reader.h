#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>
#include <vector>

#include "base/failure.h"
#include "platform/services/file_system.h"
#include "recorder/reading/analysis_progress.h"

namespace packetroutines {

/// So much of a file is read at once: it fits the processor's cache.
inline constexpr std::size_t PieceSize = std::size_t{256} * 1024;
/// What ends a line.
inline constexpr char CarriageReturn = '\r';

/// Reads the lines of a text file one by one. A line ends in a carriage return, with or without a
/// line feed behind it; a last line may lack its end.
///
/// The file is taken in pieces, and a line is a view of its piece.
class LineReader {
 public:
  LineReader(platform::InputFile& file, AnalysisPass& pass)
      : file_(file), pass_(pass), piece_(PieceSize) {}

  /// Nothing stands behind the last line that was read.
  bool AtEnd() { return !Available(); }
  /// The line that was read last had its end.
  bool WasWhole() const { return behindReturn_; }
  /// The next line without its end, until the next call; failure 62 behind the end of the file.
  std::string_view Next() {
    if (!Available()) throw platform::Failure(InputPastEnd);
    std::size_t searched = at_;
    for (;;) {
      const char* begin = piece_.data() + searched;
      const void* found = std::memchr(begin, CarriageReturn, end_ - searched);
      if (found != nullptr) return Take(static_cast<const char*>(found));
      searched = end_ - at_;
      // What was read of the line moves to the front of the piece.
      if (!ReadMore()) return Take(piece_.data() + end_);
    }
  }

 private:
  static constexpr char LineFeed = '\n';
  static constexpr std::int32_t InputPastEnd = 62;

  std::string_view Take(const char* lineEnd) {
    const std::size_t begin = at_;
    const auto end = static_cast<std::size_t>(lineEnd - piece_.data());
    behindReturn_ = end < end_;
    at_ = behindReturn_ ? end + 1 : end;
    return {piece_.data() + begin, end - begin};
  }

  /// A line feed that belongs to the line before is passed over, and something stands behind it.
  bool Available() {
    if (at_ == end_ && !ReadMore()) return false;
    if (behindReturn_ && piece_[at_] == LineFeed) ++at_;
    behindReturn_ = false;
    return at_ < end_ || ReadMore();
  }

  /// Brings what was not taken yet to the front and reads on behind it; False at the end.
  bool ReadMore();

  platform::InputFile& file_;
  AnalysisPass& pass_;
  std::vector<char> piece_;
  /// The first byte that was not taken, and the end of what was read.
  std::size_t at_ = 0;
  std::size_t end_ = 0;
  /// The line before ended in a carriage return.
  bool behindReturn_ = false;
};

}  // namespace packetroutines
