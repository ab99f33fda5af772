#pragma once

#include <chrono>

#include "platform/clock.h"

namespace adapters {

/// The computer's clocks.
class SteadyClock : public platform::Clock {
 public:
  std::chrono::nanoseconds Now() const override;
  std::chrono::microseconds WallTime() const override;
  std::chrono::nanoseconds SinceBoot() const override;
};

}  // namespace adapters
