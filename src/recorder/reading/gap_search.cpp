#include "recorder/reading/gap_search.h"

#include "base/failure.h"
#include "base/number_text.h"

namespace packetroutines {

void GapSearch::Begin(std::int32_t ramp) {
  expected_ = platform::Narrow<std::int16_t>(ramp);
  // The value behind it is expected next, and it must be a 16-bit integer too.
  platform::Narrow<std::int16_t>(ramp + 1);
}

void GapSearch::Lose(std::int32_t ramp) {
  const bool ahead = ramp > expected_ && ramp <= lastValue_;
  const bool behind = ramp >= 0 && ramp < expected_;
  // A value that the ramp never takes is looked for until the table is full.
  std::int64_t steps = LastGapEntry + 1;
  if (ahead) steps = ramp - expected_;
  if (behind) steps = std::int64_t{lastValue_} + 1 - expected_ + ramp;
  TakeEntries(steps);
  EndRun();
}

void GapSearch::TakeEntries(std::int64_t count) {
  if (lost_ + count > LastGapEntry) {
    throw platform::Failure(platform::failure::SubscriptOutOfRange);
  }
  lost_ += static_cast<std::int32_t>(count);
}

void GapSearch::EndRun() {
  const std::int32_t distance = lines_ - runBegin_;
  if (distance > longest_.Longest) longest_ = {distance - 1, runBegin_ + 1, lines_};
  runBegin_ = lines_;
}

LongestRun GapSearch::Finish() {
  if (lost_ == LastGapEntry) throw platform::Failure(platform::failure::SubscriptOutOfRange);
  if (lost_ == 0) return {lines_, 1, lines_};
  EndRun();
  return longest_;
}

}  // namespace packetroutines
