#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "sv/asdu.h"

namespace console {

/// Cosine and sine of the nominal frequency at each sample of a second, so that an angle counts
/// from the whole second, as the sample counter does.
class NominalWave {
 public:
  struct Point {
    double Cosine = 1;
    double Sine = 0;
  };

  /// `frequency` in Hz, `rate` in samples a second.
  NominalWave(std::uint32_t frequency, std::uint32_t rate);

  std::uint32_t Rate() const { return static_cast<std::uint32_t>(points_.size()); }
  /// A counter beyond the second counts on in the next one.
  const Point& At(std::uint32_t counter) const { return points_[counter % points_.size()]; }

 private:
  std::vector<Point> points_;
};

/// What a channel measures over a stretch, in the units of the wire: 1 mA, 10 mV.
struct ChannelReading {
  double Rms = 0;
  double Mean = 0;
  /// Of the nominal frequency alone: RMS value, and degrees by which the wave is ahead of a cosine
  /// that has its crest at the whole second.
  double Magnitude = 0;
  double Angle = 0;
};

/// Sums over the first eight channels of a stream, from which RMS value and phasor follow.
class ChannelSums {
 public:
  static constexpr std::size_t MostChannels = 8;

  void Add(const sv::Asdu& asdu, const NominalWave& wave);
  void Clear() { *this = {}; }
  /// Channels that every sample of the stretch had.
  std::size_t Channels() const { return samples_ == 0 ? 0 : channels_; }
  std::uint64_t Samples() const { return samples_; }
  /// Of a channel that there is, behind one sample at least.
  ChannelReading Reading(std::size_t channel) const;
  /// Samples whose quality is not good, in any of these channels.
  std::uint64_t NotGood() const { return notGood_; }

 private:
  struct Sums {
    double Value = 0;
    double Square = 0;
    double Cosine = 0;
    double Sine = 0;
  };

  std::array<Sums, MostChannels> sums_{};
  std::size_t channels_ = MostChannels;
  std::uint64_t samples_ = 0;
  std::uint64_t notGood_ = 0;
};

}  // namespace console
