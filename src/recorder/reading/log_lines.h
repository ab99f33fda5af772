#pragma once

#include <optional>
#include <string>

#include "base/local_time.h"
#include "base/number_text.h"
#include "platform/services/calendar.h"
#include "platform/services/code_page.h"
#include "platform/services/file_system.h"
#include "recorder/reading/frame_identity.h"
#include "recorder/reading/gap_search.h"

namespace packetroutines {

/// What stands in a log for what nobody knows any more.
inline constexpr const char* NotKnown = "not known (checked later)";

/// What a log tells of a recording beside its samples.
struct LogHeading {
  /// The file that was read.
  std::string Path;
  /// Its ID is in the system's code page, as the frame held it.
  FrameIdentity Frame;
  /// Nothing where nobody knows it.
  std::optional<platform::LocalTime> Start;
  platform::LocalTime Stop;
  std::string Filters;
};

/// How the texts of a log are written.
struct LogTexts {
  const platform::CodePage& Code;
  const platform::NumberText& Numbers;
  const platform::Calendar& Calendar;
};

/// Writes the lines of a log, each at once, with labels that readers of logs know: those of a stop
/// and those of a later check look the same.
class LogLines {
 public:
  LogLines(platform::OutputFile& log, const LogTexts& texts) : log_(log), texts_(texts) {}

  /// The lines in front of the counts.
  void Heading(const LogHeading& heading);
  /// What was found in the samples; the seconds go by the frequency, failure 11 where it is 0.
  void Counts(const GapSearch& gaps, const LongestRun& run, double frequency);
  /// One line of any text.
  void Line(const std::string& text);

 private:
  std::string Date(const platform::LocalTime& moment) const;

  platform::OutputFile& log_;
  LogTexts texts_;
};

}  // namespace packetroutines
