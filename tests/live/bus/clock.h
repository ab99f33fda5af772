#pragma once

#include <time.h>

#include <cstdint>

namespace bus {

/// The clock that all senders are locked to. It says which sample is due, and waits for the next
/// one.
class SampleClock {
 public:
  /// `rate` is in samples a second.
  explicit SampleClock(int rate);

  /// How many samples are due since the beginning. A bus that was held up goes on with the next one
  /// instead of making up for lost time by a flood that no merging unit sends.
  std::int64_t Due(std::int64_t sent);
  /// How many samples too many are due to be made up for.
  std::int64_t TooLate(std::int64_t sent) const;
  /// Waits until a sample is due.
  void WaitFor(std::int64_t sample) const;
  /// Waits busily until so many us behind the time of a sample: no sleep is that short.
  void WaitWithin(std::int64_t sample, std::int64_t us) const;

 private:
  std::int64_t Passed() const;
  std::int64_t TimeOf(std::int64_t sample) const;

  std::int64_t rate_;
  std::int64_t begin_;
};

}  // namespace bus
