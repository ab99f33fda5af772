#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "support/broken_bus.h"
#include "support/scene.h"

namespace fuzz {

/// Hands frames to the program and judges what each one came to: a second, plain telling of which
/// frames count, which rows and blocks they make, and which values stand in a row.
class FrameTally {
 public:
  explicit FrameTally(support::Scene& scene) : scene_(scene) {}

  /// A frame comes in. While a box stands nothing may come of it.
  void Deliver(const support::BrokenFrame& frame, bool boxStands = false);
  /// Something happened beside the frames; what is under way is not told by them alone.
  void NoteAct() { ++acts_; }
  /// From now on frames wait that nobody here hands over, so that frames are not told one by one.
  void ExpectArrivals() { blurred_ = true; }
  /// A report runs, and the frame at hand is longer than it has room for.
  bool TooLongForReport() const { return tooLongForReport_; }

 private:
  using Counters = packetroutines::RunCounters;

  /// What a frame has to come to.
  struct Expected {
    bool Counts = false;
    bool TooLong = false;
    std::array<bool, 2> SetsLength{};
    std::array<bool, 2> Holds{};
    /// The frame may fill a ring, and then it is looked at no further.
    bool SecondUnsure = false;
    int Blocks = 0;
    /// The row of the first stream that gets its values; none where it is not known.
    std::optional<std::int32_t> Row;
  };

  Expected Expect(const support::BrokenFrame& frame, bool boxStands);
  void AdvanceFirst(Expected& expected);
  /// True where the frame ends there.
  bool AdvanceRing(Expected& expected);
  void AdvanceSecond();
  bool TakesSamples() const;
  std::string_view Needle(std::size_t stream);
  bool Known(std::size_t stream) const;
  void Judge(const support::BrokenFrame& frame, const Expected& expected, const Counters& met);
  void JudgeRow(const support::BrokenFrame& frame, std::int32_t row) const;

  support::Scene& scene_;
  std::uint64_t acts_ = 0;
  /// The row that comes next, as far as it is known, and the cell of the ring.
  std::optional<std::int32_t> row_;
  std::optional<std::int32_t> cell_;
  bool blurred_ = false;
  bool tooLongForReport_ = false;
};

}  // namespace fuzz
