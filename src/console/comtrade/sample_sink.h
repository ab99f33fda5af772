#pragma once

#include <cstdint>
#include <span>

namespace console {

/// Takes the samples of a stream in the order in which they were sent.
class SampleSink {
 public:
  virtual ~SampleSink() = default;
  /// The next sample: a stored number for each channel; what is no number is missing.
  virtual void Add(std::span<const double> stored) = 0;
  /// So many samples that were lost.
  virtual void AddMissing(std::int64_t samples) = 0;
};

}  // namespace console
