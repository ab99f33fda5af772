#pragma once

#include <string>

#include "base/trap.h"
#include "capture/acquisition_state.h"
#include "capture/capture_session.h"
#include "capture/consumers.h"
#include "forms/run_buttons.h"
#include "forms/window_controls.h"
#include "platform/services/services.h"

namespace packetroutines {

/// `Timer1`: ends a mode that receives nothing, and tells the user what to check.
class NoDataWatchdog {
 public:
  NoDataWatchdog(AcquisitionState& state, forms::TimerControls& timers,
                 const forms::RunButtons& buttons, CaptureSession& capture, TabConsumer& tabs,
                 FinderConsumer& finder, const platform::Services& services);

 private:
  void Timer1_Timer();
  /// Stops capture; Leave where the user has begun another run in the pumps of the stop, which is
  /// none of this event's business.
  platform::Flow Stop();
  void EndReport();
  void EndRecording();
  void EndFinder();
  void EndView();
  void ShowNoDataDialog(const std::string& prefix);

  platform::Verdict OnFailure(const platform::Failure& failure);

  AcquisitionState& state_;
  forms::TimerControls& timers_;
  forms::RunButtons buttons_;
  CaptureSession& capture_;
  TabConsumer& tabs_;
  FinderConsumer& finder_;
  platform::Services services_;
  platform::Routine run_;
};

}  // namespace packetroutines
