#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "support/sv_frame.h"

namespace support {

/// The same numbers at every run and on every machine.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : state_(seed) {}

  /// 0 to `end` - 1.
  std::uint32_t Below(std::size_t end) {
    state_ = state_ * 6364136223846793005U + 1442695040888963407U;
    return static_cast<std::uint32_t>((state_ >> 33U) % end);
  }
  bool OneIn(std::size_t n) { return Below(n) == 0; }

 private:
  std::uint64_t state_;
};

/// Dice of this seed. Where the tests are shuffled their seed counts too, so that a repeated run
/// meets other frames each time.
Dice FreshDice(std::uint64_t seed);

/// A frame as a source hands it over, valid until the next one.
struct BrokenFrame {
  std::span<const std::uint8_t> Bytes;
  /// Bytes on the wire, at least those that the source holds.
  std::size_t Length = 0;
};

/// Frames of the streams "MU01" and "MU02", and of others, that no merging unit sends. Each one
/// stands at the very end of its memory, so that the sanitizer sees a look behind it.
class BrokenBus {
 public:
  explicit BrokenBus(Dice& dice);

  /// A frame that ends too early, on the wire or in the hands of the source.
  BrokenFrame Cut();
  /// A frame with up to 9000 bytes, noise behind its end.
  BrokenFrame Overlong();
  /// A frame in which up to eight bits are turned round.
  BrokenFrame Flipped();
  /// Noise, in which some of what the program looks for is strewn.
  BrokenFrame Random();

 private:
  using Octets = std::span<const std::uint8_t>;

  const FrameBytes& Good() { return good_[dice_.Below(good_.size())]; }
  Octets Last(std::size_t length) const { return Octets(memory_).last(length); }
  Octets Put(Octets bytes);
  Octets Noise(std::size_t length);

  Dice& dice_;
  FrameBytes memory_;
  FrameBytes noise_;
  std::vector<FrameBytes> good_;
};

}  // namespace support
