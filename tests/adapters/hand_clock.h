#pragma once

#include <chrono>

#include "platform/clock.h"

namespace adapter_tests {

/// A clock that stands until the scene moves it.
class HandClock : public platform::Clock {
 public:
  std::chrono::nanoseconds SinceBoot() const override { return Now(); }
  std::chrono::microseconds WallTime() const override {
    return std::chrono::duration_cast<std::chrono::microseconds>(Now());
  }
  std::chrono::nanoseconds Now() const override { return Time; }
  std::chrono::nanoseconds Time{};
};

}  // namespace adapter_tests
