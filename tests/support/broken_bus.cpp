#include "support/broken_bus.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

namespace support {

namespace {

constexpr std::size_t Longest = 9000;
constexpr std::size_t LongestUsual = 1522;
constexpr std::size_t NoiseBytes = 1U << 16U;
/// How often each mark stands in the noise: in about every second frame.
constexpr int MarkCount = 60;

}  // namespace

Dice FreshDice(std::uint64_t seed) {
  // The framework draws a seed for every run, shuffled or not.
  if (!GTEST_FLAG_GET(shuffle)) return Dice(seed);
  return Dice(seed + static_cast<std::uint64_t>(testing::UnitTest::GetInstance()->random_seed()));
}

BrokenBus::BrokenBus(Dice& dice) : dice_(dice), memory_(Longest), noise_(NoiseBytes) {
  for (const char* id : {"MU01", "MU02", "MU01 and MU02", "MU77"}) {
    for (const std::size_t channels : {8U, 4U, 12U}) {
      good_.push_back(SvFrame(id).Channels(channels).AllRaw(123456).Bytes());
    }
    good_.push_back(SvFrame(id).Tagged().AllRaw(-7000).Bytes());
  }
  for (std::uint8_t& byte : noise_) byte = static_cast<std::uint8_t>(dice_.Below(256));
  for (const std::string_view mark :
       {"MU01", "MU02", "\x82\x02", "\x87\x40", "\x87\x20", "\x87\x60"}) {
    for (int i = 0; i < MarkCount; ++i) {
      std::copy(mark.begin(), mark.end(),
                noise_.begin() + dice_.Below(noise_.size() - mark.size()));
    }
  }
}

BrokenFrame BrokenBus::Cut() {
  const FrameBytes& frame = Good();
  const std::size_t length = dice_.Below(frame.size());
  return {Put(Octets(frame).first(length)), dice_.OneIn(2) ? length : frame.size()};
}

BrokenFrame BrokenBus::Overlong() {
  const FrameBytes& frame = Good();
  const std::size_t longest = dice_.OneIn(4) ? Longest : LongestUsual;
  const std::size_t length = frame.size() + 1 + dice_.Below(longest - frame.size());
  Noise(length);
  std::copy(frame.begin(), frame.end(), memory_.end() - static_cast<std::ptrdiff_t>(length));
  return {Last(length), length};
}

BrokenFrame BrokenBus::Flipped() {
  const FrameBytes& frame = Good();
  Put(frame);
  const std::uint32_t bits = 1 + dice_.Below(8);
  for (std::uint32_t i = 0; i < bits; ++i) {
    std::uint8_t& byte = memory_[Longest - 1 - dice_.Below(frame.size())];
    byte = static_cast<std::uint8_t>(byte ^ 1U << dice_.Below(8));
  }
  return {Last(frame.size()), frame.size()};
}

BrokenFrame BrokenBus::Random() {
  const std::size_t length = dice_.Below(LongestUsual + 1);
  return {Noise(length), length};
}

BrokenBus::Octets BrokenBus::Put(Octets bytes) {
  std::copy(bytes.begin(), bytes.end(), memory_.end() - static_cast<std::ptrdiff_t>(bytes.size()));
  return Last(bytes.size());
}

BrokenBus::Octets BrokenBus::Noise(std::size_t length) {
  return Put(Octets(noise_).subspan(dice_.Below(noise_.size() - length), length));
}

}  // namespace support
