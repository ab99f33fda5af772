#pragma once

#include <chrono>
#include <functional>

namespace platform {

/// A wake-up call of the program's thread. It rings once; set anew, it forgets when it was to ring.
class Alarm {
 public:
  virtual ~Alarm() = default;
  virtual void Set(std::chrono::milliseconds fromNow) = 0;
  virtual void Stop() = 0;

  std::function<void()> Rings;
};

}  // namespace platform
