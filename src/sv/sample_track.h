#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace sv {

/// A place at which samples are missing.
struct Gap {
  /// The first sample behind it, counted in frames since the last look, and when it came.
  std::uint32_t Place = 0;
  std::chrono::microseconds At{0};
  /// Samples that the counter tells of; it is blind to whole rounds.
  std::uint64_t ByCounter = 0;
  /// Samples by counter and by the time of arrival, whole rounds included.
  std::uint64_t Missing = 0;
  /// Where the first of them would stand, in samples since the track began.
  std::int64_t First = 0;
  /// How many there were before some came late.
  std::uint64_t Reach = 0;

  bool Holds(std::int64_t position) const {
    return position >= First && position - First < static_cast<std::int64_t>(Reach);
  }
};

/// What happened several times since the last look: how often, and where first.
struct Happened {
  std::uint32_t Count = 0;
  std::uint32_t Place = 0;
  std::chrono::microseconds At{0};

  void Note(std::uint32_t place, std::chrono::microseconds at) {
    if (Count++ > 0) return;
    Place = place;
    At = at;
  }
};

/// What a track met since the last look.
struct Stretch {
  static constexpr std::size_t MostGaps = 24;

  /// Those that are still open: what comes late may close one.
  std::array<Gap, MostGaps> Gaps{};
  std::size_t GapCount = 0;
  /// Gaps beyond those that are kept, the samples missing in them, and the latest of them.
  std::uint32_t FurtherGaps = 0;
  std::uint64_t FurtherMissing = 0;
  Gap LatestFurther;
  Happened Doubled;
  /// Out of order: behind one that was sent later.
  Happened Late;
  /// The counter jumped although no time had passed: the sender began anew.
  Happened Jumped;
  /// Frames that were taken.
  std::uint32_t Frames = 0;
};

/// Totals of a track since the program began, in samples.
struct TrackTotals {
  std::uint64_t Samples = 0;
  std::uint64_t ByCounter = 0;
  std::uint64_t Missing = 0;
  std::uint64_t Doubled = 0;
  std::uint64_t Late = 0;
  std::uint64_t Jumped = 0;
};

/// What came in between.
inline TrackTotals operator-(const TrackTotals& now, const TrackTotals& then) {
  return {now.Samples - then.Samples, now.ByCounter - then.ByCounter, now.Missing - then.Missing,
          now.Doubled - then.Doubled, now.Late - then.Late,           now.Jumped - then.Jumped};
}

/// Follows the sample counter of one stream, frame by frame, and the times at which the frames
/// came: which samples are missing, which came twice, which too late. The counter goes round once a
/// second, so that alone it cannot tell of whole seconds; the times can.
///
/// It holds for any round: it begins with an assumed one and learns the stream's own.
class SampleTrack {
 public:
  using Time = std::chrono::microseconds;

  /// The stream is met anew; what was met before counts on. `round` is the number of samples after
  /// which the counter is expected to begin anew, `step` those in a frame.
  void Begin(std::uint32_t round, std::uint32_t step);

  /// A frame whose first sample has this counter, and which came at this time. An event of a
  /// thousand frames costs what a frame costs.
  void Take(std::uint32_t counter, Time arrived) {
    if (TakeNext(counter, arrived)) return;
    TakeOdd(counter, arrived);
    ++stretch_.Frames;
  }
  /// Takes the frame if it is the one that was to follow, right behind the one before; else nothing
  /// is changed.
  bool TakeNext(std::uint32_t counter, Time arrived) {
    if (counter != next_ || !InTime(arrived)) return false;
    Advance(counter, arrived, step_);
    ++stretch_.Frames;
    return true;
  }
  /// The frame comes right behind the one before, as far as the clock tells. Where not, the clock
  /// may have been set.
  bool InTime(Time arrived) const { return arrived >= last_ && arrived - last_ < Pause; }
  /// The clock was set by so much since the last frame.
  void SetClock(Time step) {
    last_ += step;
    begunAt_ += step;
    lookedAt_ += step;
  }

  /// When the latest frame came.
  Time Last() const { return last_; }
  /// Samples that are sent in a time.
  std::uint64_t SamplesSent(Time time) const;
  const TrackTotals& Totals() const { return totals_; }
  /// Of those missing, the ones whose place is so near that they may still come late.
  std::uint64_t MayStillCome() const;
  /// Samples after which the counter begins anew, as far as it has shown.
  std::uint32_t Round() const { return round_; }
  const Stretch& Since() const { return stretch_; }
  /// A look: what comes from now on is a stretch of its own.
  void BeginStretch() {
    stretch_ = {};
    TakeBearings();
  }
  /// Remembers how the stream keeps its time, where it does. Who watches it does so now and then,
  /// the more often the better.
  void TakeBearings();
  /// Samples a second, one of those that the standards name, where the times of arrival tell it.
  std::optional<std::uint32_t> Rate() const;

 private:
  /// Longer than any sender rests, and shorter than a round.
  static constexpr Time Pause{500'000};

  static constexpr std::uint32_t WindowSamples = 64;

  /// Each frame comes through here, so it stands where it is called.
  void Advance(std::uint32_t counter, Time arrived, std::uint32_t by) {
    position_ += by;
    window_ = by < WindowSamples ? window_ << by | 1U : 1U;
    counter_ = counter;
    next_ = counter + step_ < round_ ? counter + step_ : 0;
    last_ = arrived;
    totals_.Samples += step_;
  }
  void TakeOdd(std::uint32_t counter, Time arrived);
  void TakeFirst(std::uint32_t counter, Time arrived);
  void LearnRound(std::uint32_t counter, Time gone);
  void LearnRoundByPace(std::uint32_t counter, Time gone);
  void Lengthen(std::uint32_t round);
  bool TakeBack(std::uint32_t counter, Time arrived);
  void TakeGap(std::uint32_t counter, Time arrived);
  void Jump(std::uint32_t counter, Time arrived);
  void FillGap(std::int64_t position);
  void KeepGap(const Gap& gap);
  /// By how many samples the stream is late, as far as its pace is known.
  double Behind(Time now) const;
  /// From one counter on to another, the way round.
  std::uint32_t Distance(std::uint32_t from, std::uint32_t to) const;
  double SamplesIn(Time time) const;

  bool begun_ = false;
  std::uint32_t round_ = 4000;
  std::uint32_t step_ = 1;
  /// The counter of the latest sample, and the one that is to follow.
  std::uint32_t counter_ = 0;
  std::uint32_t next_ = 0;
  Time last_{0};
  /// The round that a sender without a known one went last.
  std::uint32_t lastRound_ = 0;
  /// Where the latest sample stands, and where what is met began.
  std::int64_t position_ = 0;
  std::int64_t floor_ = 0;
  Time begunAt_{0};
  /// Ends of rounds that stood in gaps, before the round had shown its end.
  std::uint32_t unseenEnds_ = 0;
  /// When and where it kept its time; nowhere before its pace was known.
  bool keptTime_ = false;
  Time lookedAt_{0};
  std::int64_t lookedPosition_ = 0;
  /// A bit for each of the latest 64 samples that came, the newest lowest.
  std::uint64_t window_ = 0;
  TrackTotals totals_;
  Stretch stretch_;
};

}  // namespace sv
