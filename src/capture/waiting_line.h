#pragma once

#include <chrono>
#include <string>

#include "capture/acquisition_state.h"
#include "config/settings.h"
#include "forms/run_buttons.h"
#include "forms/shared_controls.h"
#include "platform/controls/quiet_line.h"
#include "platform/controls/timer.h"
#include "platform/number_text.h"

namespace packetroutines {

/// Tells beside the run button what a run waits for that has shown no block for a while: the
/// station, and what became of the frames that came in. It only looks on and steers nothing.
class WaitingLine {
 public:
  WaitingLine(AcquisitionState& state, const config::Settings& settings,
              const config::RunSettings& present, forms::SharedControls& shared,
              const forms::RunButtons& buttons, platform::TimerQueue& timers,
              const platform::NumberText& numbers);

  /// Capture rests: a run begins or has ended, or a burst of it.
  void CaptureStopped();
  /// A block was brought to the user.
  void BlockShown();

 private:
  void FollowRun();
  void Timer_Timer();
  /// The line of the view that runs, or null.
  platform::QuietLine* LineOfRun() const;
  void WaitAnew();
  void Say(const std::string& text);
  void Silence();
  std::string Text() const;
  std::string Whereabouts() const;
  std::string Number(std::uint64_t count) const;

  AcquisitionState& state_;
  const config::Settings& settings_;
  const config::RunSettings& present_;
  forms::SharedControls& shared_;
  forms::RunButtons buttons_;
  platform::TimerQueue& timers_;
  const platform::NumberText& numbers_;
  platform::Timer timer_;

  /// Null while nothing runs.
  platform::QuietLine* line_ = nullptr;
  /// What this class has written to the line.
  std::string said_;
  /// The text of the station that is waited for.
  std::string station_;
  std::chrono::nanoseconds since_{0};
  /// A block was shown, and no burst has begun since.
  bool shown_ = false;
};

}  // namespace packetroutines
