#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "base/local_time.h"
#include "platform/services/file_system.h"
#include "recorder/reading/log_lines.h"
#include "recorder/reading/sample_search.h"

namespace console {

/// A text recording that was looked through, and what is told of it.
struct CheckedRecording {
  std::string Path;
  /// Samples behind which its counter begins anew.
  std::int32_t Round = 0;
  packetroutines::SearchedSamples Samples;
  std::vector<packetroutines::MetGap> Gaps;
  /// The moment of RUN, where the name tells it, and that of the last write.
  std::optional<platform::LocalTime> Start;
  platform::LocalTime Stop;
};

/// Looks a recording through; its round is learnt where none is given. A failure that lies in the
/// samples tells as much.
CheckedRecording CheckRecording(platform::FileSystem& files, const std::string& path,
                                std::optional<std::int32_t> round);

/// The lines of a log, and behind them one for each gap.
void WriteCheck(const CheckedRecording& checked, platform::OutputFile& log,
                const packetroutines::LogTexts& texts);

/// The same figures for a program.
nlohmann::ordered_json ToJson(const CheckedRecording& checked);

}  // namespace console
