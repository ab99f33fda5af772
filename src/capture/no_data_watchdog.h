#pragma once

#include "base/trap.h"
#include "capture/acquisition_state.h"
#include "capture/capture_session.h"
#include "capture/consumers.h"
#include "capture/modes.h"
#include "capture/run_control.h"
#include "forms/run_buttons.h"
#include "forms/window_controls.h"
#include "platform/services/services.h"

namespace packetroutines {

/// `Timer1`: ends a mode that receives nothing, and tells the user what to check.
class NoDataWatchdog {
 public:
  NoDataWatchdog(const RunFields& state, RunControl& run, forms::TimerControls& timers,
                 const forms::RunButtons& buttons, CaptureSession& capture, const Plugs& upper,
                 const platform::Services& services);

 private:
  void Timer1_Timer();
  /// Stops capture; Leave where the user has begun another run in the pumps of the stop, which is
  /// none of this event's business.
  platform::Flow Stop();
  void EndReport();
  void EndRecording();
  void EndFinder();
  void EndViews();
  void LockViews();
  void ShowNoDataDialog(ModeName mode);

  platform::Verdict OnFailure(const platform::Failure& failure);

  const RunFields& state_;
  RunControl& control_;
  forms::RunButtons buttons_;
  CaptureSession& capture_;
  const Plugs& upper_;
  platform::Services services_;
  platform::Routine run_;
};

}  // namespace packetroutines
