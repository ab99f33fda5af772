#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace platform {

/// The eight channels of a stream of IEC 61850-9-2LE: the currents, and behind them the voltages.
namespace channels {
inline constexpr std::size_t CurrentA = 0;
inline constexpr std::size_t CurrentB = 1;
inline constexpr std::size_t CurrentC = 2;
inline constexpr std::size_t CurrentN = 3;
inline constexpr std::size_t VoltageA = 4;
inline constexpr std::size_t VoltageB = 5;
inline constexpr std::size_t VoltageC = 6;
inline constexpr std::size_t VoltageN = 7;
inline constexpr std::size_t Count = 8;
/// Channels of one kind.
inline constexpr std::size_t OfAKind = 4;

constexpr bool IsCurrent(std::size_t channel) {
  return channel < OfAKind;
}
constexpr bool IsNeutral(std::size_t channel) {
  return channel % OfAKind == CurrentN;
}
}  // namespace channels

/// Samples a period of the mains, and a second at 50 Hz.
inline constexpr std::int32_t SamplesAPeriod = 80;
inline constexpr std::int32_t SamplesASecond = 4000;
/// From one sample to the next at a frequency of the mains in Hz; 0 where there is none.
constexpr double SecondsPerSample(double frequency) {
  return frequency > 0 ? 1 / (SamplesAPeriod * frequency) : 0;
}
inline constexpr std::chrono::nanoseconds SampleTime =
    std::chrono::nanoseconds(std::chrono::seconds(1)) / SamplesASecond;

}  // namespace platform
