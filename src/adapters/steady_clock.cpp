#include "adapters/steady_clock.h"

namespace adapters {

std::chrono::nanoseconds SteadyClock::Now() const {
  return std::chrono::steady_clock::now().time_since_epoch();
}

std::chrono::microseconds SteadyClock::WallTime() const {
  return std::chrono::duration_cast<std::chrono::microseconds>(
      std::chrono::system_clock::now().time_since_epoch());
}

}  // namespace adapters
