#pragma once

#include <string>

#include "base/local_time.h"
#include "platform/services/file_system.h"
#include "recorder/reading/frame_identity.h"
#include "recorder/reading/gap_search.h"
#include "recorder/writing/recorder_services.h"

namespace packetroutines {

/// What a log tells of a recording beside its samples.
struct LogHeading {
  /// The file that was read.
  std::string Path;
  /// Its ID is in the system's code page, as the frame held it.
  FrameIdentity Frame;
  platform::LocalTime Start;
  platform::LocalTime Stop;
  std::string Filters;
};

/// Writes the lines of a log, each at once, with labels that readers of logs know: those of a stop
/// and those of a later check look the same.
class LogLines {
 public:
  LogLines(platform::OutputFile& log, const RecorderServices& services)
      : log_(log), services_(services) {}

  /// The lines in front of the counts.
  void Heading(const LogHeading& heading);
  /// What was found in the samples; the seconds go by the frequency, failure 11 where it is 0.
  void Counts(const GapSearch& gaps, const LongestRun& run, double frequency);
  /// One line of any text.
  void Line(const std::string& text);

 private:
  std::string Date(const platform::LocalTime& moment) const;

  platform::OutputFile& log_;
  const RecorderServices& services_;
};

}  // namespace packetroutines
