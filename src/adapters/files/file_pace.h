#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace adapters {

/// The pace of a capture file: how long after the frame before it each frame comes, by the time
/// stamps. As long as the stamps of a pass tell none, it is that of a stream at 50 Hz.
class FilePace {
 public:
  /// The gap in front of the next frame of a pass; none in front of the first frame of all.
  std::chrono::nanoseconds GapBefore(std::chrono::nanoseconds stamp);
  /// The gap in front of the first frame of the next pass: the mean of the pass that is over, but
  /// not below the usual gap, so that a short file is not begun anew without end.
  std::chrono::nanoseconds GapAtSeam(std::chrono::nanoseconds stamp);

 private:
  std::optional<std::chrono::nanoseconds> last_;
  /// What the stamps of this pass told, and of how many gaps.
  std::chrono::nanoseconds told_{};
  std::int64_t gaps_ = 0;
};

}  // namespace adapters
