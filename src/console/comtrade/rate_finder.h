#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

#include "sv/asdu.h"
#include "sv/sample_track.h"

namespace console {

/// Finds out how many samples a second a stream has, which is the round of its counter: any, listed
/// in a standard or not. The counter that begins anew shows it; where it does not, the times of
/// arrival do, which tell less the shorter they are. It goes on to look, since a stream may change.
class RateFinder {
 public:
  using Time = std::chrono::microseconds;

  /// `frequency` of the mains in Hz, where the user gave it: some senders tell samples a period.
  explicit RateFinder(std::optional<double> frequency) : frequency_(frequency) {}

  /// The next frame: its ASDUs, at least one.
  void Take(const std::vector<sv::Asdu>& asdus, Time arrived);
  /// The counter has shown that it was wrong, so what the sender says of its rate is no help
  /// either.
  void BeginAnew();

  /// The computer's clock was set by so much since the last frame.
  void SetClock(Time step) {
    track_.SetClock(step);
    begunAt_ += step;
  }

  /// In samples a second, as soon as it is known well.
  std::optional<std::uint32_t> Found() const { return found_; }
  /// As well as it can be told from what came.
  std::uint32_t Guess() const;

 private:
  void TakeEnd(std::uint32_t round, Time gone);
  std::optional<std::uint32_t> Told(const sv::Asdu& asdu) const;
  std::optional<double> Pace() const;

  std::optional<double> frequency_;
  bool believesSender_ = true;
  std::optional<std::uint32_t> found_;
  /// A round that no standard lists has ended once; a lost sample looks the same.
  std::optional<std::uint32_t> once_;
  sv::SampleTrack track_;
  sv::TrackTotals before_;
  std::size_t asdus_ = 0;
  bool begun_ = false;
  Time begunAt_{0};
  std::uint32_t last_ = 0;
  /// Of the counters near the one before, and of those since the latest end of a round: a broken
  /// one is near none.
  std::uint32_t greatest_ = 0;
  std::uint32_t greatestSince_ = 0;
};

}  // namespace console
