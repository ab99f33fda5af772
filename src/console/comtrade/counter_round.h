#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/services/file_system.h"
#include "sv/standard_rates.h"

namespace console {

/// Learns from the sample counters of a recording how many of them make a round, which is a second.
///
/// A counter that begins anew tells its round; a single one that is broken tells nothing. Where
/// none begins anew, the round is the smallest standard one that holds them all.
class CounterRound {
 public:
  /// The counter of the next sample.
  void Take(std::int64_t counter);
  std::int32_t Samples() const;

 private:
  /// How often a counter began anew behind the last one of each standard round.
  std::array<std::int64_t, sv::StandardRates.size()> begunAnew_{};
  std::int64_t last_ = 0;
  std::int64_t greatest_ = 0;
};

/// The round of a text recording. Failures 5 and 6 where a line is no sample.
std::int32_t LearnRound(platform::FileSystem& files, const std::string& path);

}  // namespace console
