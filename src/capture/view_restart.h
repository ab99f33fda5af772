#pragma once

#include "capture/acquisition_state.h"
#include "capture/capture_session.h"
#include "capture/modes.h"
#include "capture/run_control.h"
#include "config/settings.h"
#include "forms/run_buttons.h"
#include "forms/window_controls.h"
#include "platform/services/event_queue.h"

namespace packetroutines {

/// `Timer2`: starts the next burst of a live view or of the stream finder after its block.
class ViewRestart {
 public:
  ViewRestart(const RunFields& state, RunControl& run, const config::Settings& settings,
              forms::TimerControls& timers, const forms::RunButtons& buttons,
              CaptureSession& capture, platform::EventQueue& events);

 private:
  void Timer2_Timer();
  /// The button of a live view that is on was released.
  bool ViewEnded() const;
  /// The mode is a live view's, and its button is off.
  bool Released(const Mode& mode) const;
  /// Starts the next burst of a mode that is on, after the user's delay.
  void Restart(ModeName name);
  /// Ends a burst that has just begun for a view that was stopped before.
  void End(ModeName name);

  const RunFields& state_;
  RunControl& run_;
  const config::Settings& settings_;
  forms::RunButtons buttons_;
  CaptureSession& capture_;
  platform::EventQueue& events_;
};

}  // namespace packetroutines
