#include "adapters/steady_clock.h"

#include <ctime>

namespace adapters {

std::chrono::nanoseconds SteadyClock::Now() const {
  return std::chrono::steady_clock::now().time_since_epoch();
}

std::chrono::microseconds SteadyClock::WallTime() const {
  return std::chrono::duration_cast<std::chrono::microseconds>(
      std::chrono::system_clock::now().time_since_epoch());
}

std::chrono::nanoseconds SteadyClock::SinceBoot() const {
#ifdef CLOCK_BOOTTIME
  std::timespec time{};
  if (clock_gettime(CLOCK_BOOTTIME, &time) == 0) {
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
  }
#endif
  // Elsewhere the usual clock goes on by itself.
  return Now();
}

}  // namespace adapters
