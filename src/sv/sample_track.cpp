#include "sv/sample_track.h"

#include <algorithm>
#include <cmath>

#include "sv/standard_rates.h"

namespace sv {

namespace {

/// A jump below this may be a stretch that the system has dropped, whatever the times say.
constexpr std::uint32_t ShortestJump = 40;
/// So much of the way must have gone by for a gap to be one.
constexpr double GoneOfGap = 0.25;
/// Or so much of it must have been missing before, for a stream that is late.
constexpr double BehindOfGap = 0.5;
/// Nothing holds up a stream for so long, but its clock goes another way.
constexpr SampleTrack::Time OldBearings{2'000'000};
/// A rate is told from so much time, to so much of itself.
constexpr SampleTrack::Time ShortestLook{50'000};
constexpr double RateError = 0.03;

/// A rest between two of whole rounds is one of a sender that goes on where it was.
double WholeRounds(double rounds) {
  constexpr double Off = 0.25;
  const double whole = std::round(rounds);
  return std::max(std::abs(rounds - whole) <= Off ? whole : std::floor(rounds), 0.0);
}

}  // namespace

void SampleTrack::Begin(std::uint32_t round, std::uint32_t step) {
  begun_ = false;
  round_ = std::max(round, 1U);
  step_ = std::max(step, 1U);
  lastRound_ = 0;
  unseenEnds_ = 0;
  // Never the counter of a frame, so that the first one is met as such.
  next_ = ~0U;
}

std::uint32_t SampleTrack::Distance(std::uint32_t from, std::uint32_t to) const {
  return to >= from ? to - from : to + round_ - from;
}

std::uint64_t SampleTrack::SamplesSent(Time time) const {
  return static_cast<std::uint64_t>(std::max(SamplesIn(time), 0.0));
}

void SampleTrack::TakeBearings() {
  const bool keepsTime = Rate() == round_;
  // What was held up on its way would be a wrong line to measure by.
  const bool late = Behind(last_) > ShortestJump && last_ - lookedAt_ < OldBearings;
  if (!keepsTime || late) return;
  keptTime_ = true;
  lookedAt_ = last_;
  lookedPosition_ = position_;
}

double SampleTrack::Behind(Time now) const {
  if (!keptTime_) return 0;
  return SamplesIn(now - lookedAt_) - static_cast<double>(position_ - lookedPosition_);
}

std::uint64_t SampleTrack::MayStillCome() const {
  if (!begun_) return 0;
  std::uint64_t open = 0;
  // Of a frame of several samples the first one stands for all.
  for (std::uint32_t back = 0; back < WindowSamples && position_ - back >= floor_; back += step_) {
    if ((window_ >> back & 1U) == 0) open += step_;
  }
  return std::min(open, totals_.Missing);
}

double SampleTrack::SamplesIn(Time time) const {
  return std::chrono::duration<double>(time).count() * round_;
}

void SampleTrack::TakeFirst(std::uint32_t counter, Time arrived) {
  begun_ = true;
  window_ = 0;
  if (counter >= round_) round_ = RoundFor(counter);
  Advance(counter, arrived, WindowSamples);
  floor_ = position_;
  begunAt_ = arrived;
  keptTime_ = false;
}

void SampleTrack::TakeOdd(std::uint32_t counter, Time arrived) {
  if (!begun_) {
    TakeFirst(counter, arrived);
    return;
  }
  // Where the clock went back and nobody knows by how much, no time is taken to have gone.
  const Time gone = std::max(arrived - last_, Time{0});
  LearnRound(counter, gone);
  if (counter == next_ && gone < Pause) {
    Advance(counter, arrived, step_);
    return;
  }
  if (gone < Pause && TakeBack(counter, arrived)) return;
  LearnRoundByPace(counter, gone);
  const std::uint32_t distance = Distance(counter_, counter);
  // What was held up on its way comes late and all at once; what is missing behind it is no jump.
  if (distance > ShortestJump && SamplesIn(gone) < GoneOfGap * distance &&
      Behind(arrived) < BehindOfGap * distance) {
    Jump(counter, arrived);
  } else {
    TakeGap(counter, arrived);
  }
}

void SampleTrack::LearnRound(std::uint32_t counter, Time gone) {
  if (counter >= round_) {
    Lengthen(RoundFor(counter));
    next_ = counter_ + step_;
    return;
  }
  // A counter that begins anew in the midst of the round, without any time for what is between.
  if (counter != 0 || counter_ < WindowSamples || next_ == 0) return;
  if (SamplesIn(gone) > ShortestJump) return;
  const std::uint32_t round = counter_ + step_;
  if (IsStandardRate(round) || round == lastRound_) {
    round_ = round;
    next_ = 0;
  }
  lastRound_ = round;
}

void SampleTrack::Lengthen(std::uint32_t round) {
  // Where an end of the round was missing, more was missing than the shorter one told.
  const std::uint64_t more = std::uint64_t{unseenEnds_} * (round - round_);
  totals_.Missing += more;
  totals_.ByCounter += more;
  position_ += static_cast<std::int64_t>(more);
  unseenEnds_ = 0;
  round_ = round;
}

void SampleTrack::LearnRoundByPace(std::uint32_t counter, Time gone) {
  // Where the first end of a round is missing, nothing has shown where it is but the pace so far.
  if (counter >= counter_ || position_ - floor_ >= round_) return;
  const std::optional<std::uint32_t> rate = Rate();
  if (!rate || *rate <= counter_) return;
  // A stream that was late when it was met seems to go faster. How long this hole took tells, too.
  const auto off = [&](std::uint32_t round) {
    const double seconds =
        std::chrono::duration<double>(gone).count() -
        static_cast<double>(round - counter_ + counter) / static_cast<double>(round);
    return std::abs(seconds - std::round(seconds));
  };
  if (off(*rate) <= off(round_)) round_ = *rate;
}

bool SampleTrack::TakeBack(std::uint32_t counter, Time arrived) {
  const std::uint32_t back = Distance(counter, counter_);
  if (back >= WindowSamples) return false;
  last_ = arrived;
  totals_.Samples += step_;
  const std::uint64_t bit = std::uint64_t{1} << back;
  if ((window_ & bit) != 0) {
    stretch_.Doubled.Note(stretch_.Frames, arrived);
    totals_.Doubled += step_;
    return true;
  }
  window_ |= bit;
  stretch_.Late.Note(stretch_.Frames, arrived);
  totals_.Late += step_;
  FillGap(position_ - back);
  return true;
}

void SampleTrack::FillGap(std::int64_t position) {
  // What came before the track began was never missed.
  if (position < floor_) return;
  const auto fill = [this](std::uint64_t& missing) {
    missing -= std::min<std::uint64_t>(missing, step_);
  };
  fill(totals_.Missing);
  fill(totals_.ByCounter);
  Gap& further = stretch_.LatestFurther;
  if (stretch_.FurtherGaps > 0 && further.Holds(position)) {
    fill(stretch_.FurtherMissing);
    fill(further.Missing);
    if (further.Missing == 0) --stretch_.FurtherGaps;
    return;
  }
  Gap* const end = stretch_.Gaps.data() + stretch_.GapCount;
  Gap* const gap = std::find_if(stretch_.Gaps.data(), end,
                                [&](const Gap& each) { return each.Holds(position); });
  if (gap == end) return;
  fill(gap->Missing);
  fill(gap->ByCounter);
  if (gap->Missing > 0) return;
  // Its place is free again: frames that change places open and close a gap each time.
  std::move(gap + 1, end, gap);
  --stretch_.GapCount;
}

void SampleTrack::KeepGap(const Gap& gap) {
  if (stretch_.GapCount < Stretch::MostGaps) {
    stretch_.Gaps[stretch_.GapCount++] = gap;
    return;
  }
  ++stretch_.FurtherGaps;
  stretch_.FurtherMissing += gap.Missing;
  stretch_.LatestFurther = gap;
}

void SampleTrack::TakeGap(std::uint32_t counter, Time arrived) {
  std::uint32_t distance = Distance(counter_, counter);
  if (distance == 0) distance = round_;
  if (counter < counter_) ++unseenEnds_;
  // Fewer than a frame holds: the sender's steps are uneven, and nothing is missing.
  const std::uint64_t byCounter = distance > step_ ? distance - step_ : 0;
  const double beyond = SamplesIn(arrived - last_) - distance;
  const auto rounds = static_cast<std::uint64_t>(WholeRounds(beyond / round_));
  const Gap gap{.Place = stretch_.Frames,
                .At = arrived,
                .ByCounter = byCounter,
                .Missing = byCounter + rounds * round_,
                .First = position_ + 1,
                .Reach = byCounter + rounds * round_};
  totals_.ByCounter += gap.ByCounter;
  totals_.Missing += gap.Missing;
  if (gap.Missing > 0) KeepGap(gap);
  const std::int64_t before = position_;
  Advance(counter, arrived,
          static_cast<std::uint32_t>(std::min<std::uint64_t>(gap.Missing + step_, ~0U)));
  position_ = before + static_cast<std::int64_t>(gap.Missing + step_);
}

void SampleTrack::Jump(std::uint32_t counter, Time arrived) {
  stretch_.Jumped.Note(stretch_.Frames, arrived);
  ++totals_.Jumped;
  Advance(counter, arrived, WindowSamples);
  floor_ = position_;
  begunAt_ = arrived;
  keptTime_ = false;
}

std::optional<std::uint32_t> SampleTrack::Rate() const {
  if (!begun_ || last_ - begunAt_ < ShortestLook) return std::nullopt;
  const double rate = static_cast<double>(position_ - floor_) /
                      std::chrono::duration<double>(last_ - begunAt_).count();
  for (const std::uint32_t standard : StandardRates) {
    if (std::abs(rate - standard) < RateError * standard) return standard;
  }
  return std::nullopt;
}

}  // namespace sv
