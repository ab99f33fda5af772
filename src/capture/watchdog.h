#pragma once

#include <string>

#include "capture/acquisition_state.h"
#include "capture/capture_session.h"
#include "capture/consumers.h"
#include "config/settings.h"
#include "forms/main_form.h"
#include "platform/dialogs.h"
#include "platform/event_queue.h"
#include "platform/program.h"
#include "platform/trap.h"

namespace packetroutines {

/// The three timers of the burst cycle: `Timer1` ends a mode that receives nothing, `Timer2`
/// restarts a live view after its block, and `Timer3` gives the run buttons back.
class Watchdog {
 public:
  Watchdog(AcquisitionState& state, const config::Settings& settings, forms::Main& main,
           CaptureSession& capture, TabConsumer& tabs, ReportConsumer& finder,
           platform::EventQueue& events, platform::Dialogs& dialogs, platform::Program& program);

 private:
  void Timer1_Timer();
  void EndReport();
  void EndRecording();
  void EndFinder();
  void EndView();
  void Timer2_Timer();
  /// Starts the next burst of a mode that is on, after the user's delay.
  template <typename Pump>
  void Restart(bool lookingFor, const char* mode, Pump pump);
  void Timer3_Timer();
  void ShowNoDataDialog(const std::string& prefix);

  template <typename... Steps>
  void Run(Steps... steps);
  platform::Verdict OnFailure(const platform::Failure& failure);

  AcquisitionState& state_;
  const config::Settings& settings_;
  forms::Main& main_;
  CaptureSession& capture_;
  TabConsumer& tabs_;
  ReportConsumer& finder_;
  platform::EventQueue& events_;
  platform::Dialogs& dialogs_;
  platform::Program& program_;
};

}  // namespace packetroutines
