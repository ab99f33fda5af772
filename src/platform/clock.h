#pragma once

#include <chrono>

namespace platform {

/// Monotonic time, for timers and for the pace of frames.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual std::chrono::nanoseconds Now() const = 0;
};

}  // namespace platform
