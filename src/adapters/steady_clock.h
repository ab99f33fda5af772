#pragma once

#include <chrono>

#include "platform/clock.h"

namespace adapters {

/// The computer's monotonic clock.
class SteadyClock : public platform::Clock {
 public:
  std::chrono::nanoseconds Now() const override;
};

}  // namespace adapters
