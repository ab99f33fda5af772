#pragma once

#include <chrono>

namespace platform {

/// The time of the computer.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Monotonic time, for timers and for the pace of frames.
  virtual std::chrono::nanoseconds Now() const = 0;
  /// What the computer's clock shows, since 1970 began in Greenwich. It may be set at any moment.
  virtual std::chrono::microseconds WallTime() const = 0;
  /// Monotonic time that goes on while the computer sleeps; only its differences count.
  virtual std::chrono::nanoseconds SinceBoot() const = 0;
};

}  // namespace platform
