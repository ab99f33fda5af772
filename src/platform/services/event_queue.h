#pragma once

#include <cstdint>

namespace platform {

/// The one event queue of the program's one thread.
class EventQueue {
 public:
  virtual ~EventQueue() = default;
  /// Lets the pending window events, timers and frames run once, and returns.
  virtual void Pump() = 0;
  /// Blocks the thread for `ms` milliseconds; no event is handled meanwhile.
  virtual void WaitMs(std::int32_t ms) = 0;
};

}  // namespace platform
