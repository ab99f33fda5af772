#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "base/failure.h"
#include "base/local_time.h"
#include "platform/services/file_system.h"
#include "recorder/reading/analysis_progress.h"
#include "recorder/reading/gap_search.h"
#include "recorder/reading/log_lines.h"

namespace packetroutines {

/// What a look through the samples of a text recording has found.
struct SearchedSamples {
  GapSearch Gaps;
  LongestRun Run;
  /// Behind the last whole line stands a part of another one.
  bool Cut = false;
};

/// A place at which samples are missing.
struct MetGap {
  /// The line of the first sample behind it, from 1 on, and that sample's counter.
  std::int32_t Line = 0;
  std::int32_t Counter = 0;
  /// Samples.
  std::int32_t Missing = 0;
};

/// Looks through a text recording whose counter goes a round of so many samples, and hands over its
/// gaps as they come. Failures 5 and 6 where it holds no samples or a line that is none, 9 where
/// too many are missing.
SearchedSamples SearchSamples(
    platform::FileSystem& files, const std::string& path, AnalysisPass& pass,
    std::int32_t round = GapSearch::LogRound,
    const std::function<void(const MetGap&)>& met = [](const MetGap&) {});

/// Why such a search ended early, as a clause; nothing where the reason is not in the samples.
std::string ReasonInTheSamples(const platform::Failure& failure, std::int32_t round);

/// Writes the log of a later check, for which nobody knows who sent the samples. `start` is the
/// moment of RUN, where the file's name tells it, `stop` that of the last write to the file; the
/// seconds go by the frequency.
void WriteCheckLog(LogLines& lines, const std::string& path,
                   const std::optional<platform::LocalTime>& start, const platform::LocalTime& stop,
                   const SearchedSamples& samples, double frequency);

}  // namespace packetroutines
