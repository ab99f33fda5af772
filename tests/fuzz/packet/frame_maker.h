#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "fuzz/packet/acts.h"
#include "support/broken_bus.h"
#include "support/sv_frame.h"

namespace fuzz {

/// What the frames of a burst are made of.
struct Burst {
  std::size_t Sender = 0;
  FrameKind Kind = FrameKind::Sound;
  std::uint8_t First = 0;
  std::uint8_t Second = 0;
};

/// Frames of senders of many forms, and what no sender sends. A frame stands at the very end of its
/// memory, so that the sanitizer sees a look behind it.
class FrameMaker {
 public:
  /// The longest frame: more than the program's numbers take.
  static constexpr std::size_t Longest = 40'000;

  explicit FrameMaker(support::Dice& dice) : dice_(dice) {}

  /// The `n`-th frame of a burst, written to the end of `memory`.
  support::BrokenFrame Make(const Burst& burst, std::uint32_t n, support::FrameBytes& memory);
  /// A frame of these bytes that was `length` bytes long on the wire.
  static support::BrokenFrame Raw(std::span<const std::uint8_t> bytes, std::size_t length,
                                  support::FrameBytes& memory);

 private:
  /// A frame of a sender, with the places of its first counter and samples.
  struct Sender {
    support::FrameBytes Bytes;
    std::size_t CountAt = 0;
    std::size_t SamplesAt = 0;
    std::size_t Channels = 0;
  };

  static const std::vector<Sender>& Senders();
  static Sender Placed(support::FrameBytes bytes);
  void Fill(const Sender& sender, const Burst& burst, std::uint32_t n, std::span<std::uint8_t> at);
  support::BrokenFrame Spoil(const Burst& burst, std::uint32_t n, std::span<std::uint8_t> frame,
                             support::FrameBytes& memory);
  support::BrokenFrame Lengthen(std::span<std::uint8_t> frame, support::FrameBytes& memory);

  support::Dice& dice_;
};

}  // namespace fuzz
