#pragma once

#include <time.h>

#include <cstdint>

namespace bus {

/// The clock that all senders are locked to. It waits for each sample, and says for how many it is
/// too late.
class SampleClock {
 public:
  /// `rate` is in samples a second.
  explicit SampleClock(int rate);

  /// How many samples too many are due to be made up for, since that would be a flood that no
  /// merging unit sends.
  std::int64_t TooLate(std::int64_t sent) const;
  /// All samples to come are due later by the time of so many.
  void SetBack(std::int64_t samples);
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
