#pragma once

#include <chrono>

#include "platform/clock.h"

namespace adapters {

/// The time of a capture file that is read as fast as it can be: it begins with the file's first
/// time stamp, and passes where the program waits.
class FileClock : public platform::Clock {
 public:
  /// The stamp, since 1970 began in Greenwich.
  explicit FileClock(std::chrono::nanoseconds began) : began_(began) {}

  std::chrono::nanoseconds Now() const override { return passed_; }
  std::chrono::microseconds WallTime() const override {
    return std::chrono::duration_cast<std::chrono::microseconds>(began_ + passed_);
  }
  std::chrono::nanoseconds SinceBoot() const override { return passed_; }
  void Pass(std::chrono::nanoseconds time) { passed_ += time; }

 private:
  std::chrono::nanoseconds began_;
  std::chrono::nanoseconds passed_{0};
};

}  // namespace adapters
