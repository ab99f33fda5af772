#pragma once

#include <cstdint>

namespace packetroutines {

/// The longest stretch of lines without a lost sample; positions are those of the log.
struct LongestRun {
  std::int32_t Longest = 0;
  std::int32_t First = 0;
  std::int32_t Last = 0;
};

/// Follows the ramp of a recording line by line, counts the samples that are missing in it and
/// finds the longest stretch between two gaps.
///
/// The ramp of a log runs from 0 to 3999, one second at 4000 frames a second, whatever the
/// frequency is; who knows the stream better names the round that its counter goes. Each missing
/// sample makes one entry in a table of gaps that ends at entry 2000000, and the end of the file
/// makes one more; an entry beyond raises failure 9. The runs are judged as their gaps come, so
/// neither the table nor the ramp values need to stay in memory: what limits the analysis is this
/// bound alone.
class GapSearch {
 public:
  static constexpr std::int32_t LogRound = 4000;
  static constexpr std::int32_t LastGapEntry = 2'000'000;

  /// Follows the ramp of a log.
  GapSearch() = default;
  /// Follows one of so many values, at least 1.
  explicit GapSearch(std::int32_t round) : lastValue_(round - 1) {}

  /// The next line has this ramp value. The first one sets where the ramp begins; failure 6 where
  /// that is no 16-bit integer.
  void Line(std::int32_t ramp) {
    if (lines_ == 0) Begin(ramp);
    if (ramp != expected_) Lose(ramp);
    expected_ = ramp < lastValue_ ? ramp + 1 : 0;
    ++lines_;
  }

  /// Behind the last line: the longest run. Without a gap it is the whole file; else the length is
  /// one short of the run's lines, and the last one wins among runs of equal length.
  LongestRun Finish();

  std::int32_t Lines() const { return lines_; }
  /// Samples that are missing.
  std::int32_t Lost() const { return lost_; }

 private:
  void Begin(std::int32_t ramp);
  void Lose(std::int32_t ramp);
  void TakeEntries(std::int64_t count);
  void EndRun();

  std::int32_t lastValue_ = LogRound - 1;
  std::int32_t lines_ = 0;
  std::int32_t lost_ = 0;
  std::int32_t expected_ = 0;
  /// The line at which the present run began.
  std::int32_t runBegin_ = 0;
  LongestRun longest_;
};

}  // namespace packetroutines
