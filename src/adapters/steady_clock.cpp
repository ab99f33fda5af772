#include "adapters/steady_clock.h"

namespace adapters {

std::chrono::nanoseconds SteadyClock::Now() const {
  return std::chrono::steady_clock::now().time_since_epoch();
}

}  // namespace adapters
