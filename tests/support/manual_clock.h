#pragma once

#include <chrono>
#include <stdexcept>

#include "platform/clock.h"

namespace support {

/// Time that stands still until a test moves it, forwards only.
class ManualClock : public platform::Clock {
 public:
  std::chrono::nanoseconds Now() const override { return now_; }
  std::chrono::microseconds WallTime() const override {
    return Began + std::chrono::duration_cast<std::chrono::microseconds>(now_);
  }
  std::chrono::nanoseconds SinceBoot() const override { return now_; }
  void Advance(std::chrono::nanoseconds time) { Set(now_ + time); }
  void Set(std::chrono::nanoseconds time) {
    if (time < now_) throw std::logic_error("the clock was set back");
    now_ = time;
  }

  /// What the computer's clock showed when the monotonic one stood at 0. A test may set it.
  std::chrono::microseconds Began = std::chrono::seconds(1'709'993'106);

 private:
  std::chrono::nanoseconds now_{1'000'000'000};
};

}  // namespace support
