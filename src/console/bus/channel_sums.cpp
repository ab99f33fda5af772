#include "console/bus/channel_sums.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace console {

NominalWave::NominalWave(std::uint32_t frequency, std::uint32_t rate) {
  points_.reserve(std::max(rate, 1U));
  for (std::uint32_t sample = 0; sample < std::max(rate, 1U); ++sample) {
    // Whole periods are left out first, so that the last sample is as exact as the first.
    const std::uint64_t turns = std::uint64_t{frequency} * sample % std::max(rate, 1U);
    const double angle = 2 * std::numbers::pi * static_cast<double>(turns) / std::max(rate, 1U);
    points_.push_back({std::cos(angle), std::sin(angle)});
  }
}

void ChannelSums::Add(const sv::Asdu& asdu, const NominalWave& wave) {
  const std::size_t channels = std::min(asdu.Channels(), MostChannels);
  channels_ = std::min(channels_, channels);
  const NominalWave::Point& point = wave.At(asdu.SmpCnt.value_or(0));
  std::uint32_t quality = 0;
  for (std::size_t channel = 0; channel < channels; ++channel) {
    Sums& sums = sums_[channel];
    const double value = asdu.Value(channel);
    quality |= asdu.Quality(channel);
    sums.Value += value;
    sums.Square += value * value;
    sums.Cosine += value * point.Cosine;
    sums.Sine += value * point.Sine;
  }
  ++samples_;
  if (quality != 0) ++notGood_;
}

ChannelReading ChannelSums::Reading(std::size_t channel) const {
  const Sums& sums = sums_[channel];
  const auto count = static_cast<double>(samples_);
  ChannelReading reading;
  reading.Mean = sums.Value / count;
  reading.Rms = std::sqrt(sums.Square / count);
  // A wave A cos(wt + p) gives A/2 cos p and -A/2 sin p.
  const double real = sums.Cosine / count;
  const double imaginary = -sums.Sine / count;
  reading.Magnitude = std::hypot(real, imaginary) * std::numbers::sqrt2;
  if (reading.Magnitude > 0) {
    reading.Angle = std::atan2(imaginary, real) * 180 / std::numbers::pi;
  }
  return reading;
}

}  // namespace console
