#pragma once

#include <string>

#include "base/local_time.h"
#include "platform/controls/quiet_line.h"
#include "platform/services/calendar.h"
#include "platform/services/sleep_inhibitor.h"
#include "recorder/session/end_reason.h"

namespace subroutines {

/// A recording as a stretch of time, from RUN to the one end that it has. The computer is kept
/// awake for as long, and the view's line tells of the end until the next RUN.
class RecordingSpan {
 public:
  RecordingSpan(platform::QuietLine& line, const platform::Calendar& calendar,
                platform::SleepInhibitor& sleep)
      : line_(line), calendar_(calendar), sleep_(sleep) {}

  void Begin();
  /// False where it has ended before, or none was begun.
  bool End(EndReason reason);
  bool UnderWay() const { return underWay_; }
  /// When the latest one began.
  const platform::LocalTime& Since() const { return since_; }

 private:
  void Tell(EndReason reason);

  platform::QuietLine& line_;
  const platform::Calendar& calendar_;
  platform::SleepInhibitor& sleep_;
  bool underWay_ = false;
  platform::LocalTime since_;
  /// What the line was given.
  std::string said_;
};

}  // namespace subroutines
