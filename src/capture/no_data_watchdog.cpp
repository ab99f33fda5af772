#include "capture/no_data_watchdog.h"

#include <cstdint>

#include "base/failure.h"

namespace packetroutines {

using platform::Crlf;
using platform::Failure;
using platform::Flow;
using platform::Verdict;

namespace {

/// The no-data dialog closes by itself after this time.
constexpr std::int32_t DialogSeconds = 30;

}  // namespace

NoDataWatchdog::NoDataWatchdog(const RunFields& state, RunControl& run,
                               forms::TimerControls& timers, const forms::RunButtons& buttons,
                               CaptureSession& capture, const Plugs& upper,
                               const platform::Services& services)
    : state_(state),
      control_(run),
      buttons_(buttons),
      capture_(capture),
      upper_(upper),
      services_(services),
      run_(services.Program, [this](const Failure& failure, int) { return OnFailure(failure); }) {
  timers.Timer1.Elapsed = [this] { Timer1_Timer(); };
}

Verdict NoDataWatchdog::OnFailure(const Failure& failure) {
  if (failure.Number() == platform::failure::HarmlessStop) return Verdict::SkipStep;
  services_.Dialogs.Show({"unknown...",
                          std::string("unknown error. ") + Crlf + failure.Text() + Crlf +
                              "this happens while getting timeout",
                          platform::Icon::Critical});
  return Verdict::EndProgram;
}

void NoDataWatchdog::Timer1_Timer() {
  if (state_.ReportRequested) {
    EndReport();
  } else if (state_.LookingForRecording) {
    EndRecording();
  } else if (state_.LookingForID) {
    EndFinder();
  } else if (AnyModeSet(state_, IsLiveView)) {
    EndViews();
  } else {
    control_.CallOffWatchdog();
  }
}

Flow NoDataWatchdog::Stop() {
  return capture_.StopCapture() ? Flow::Next : Flow::Leave;
}

void NoDataWatchdog::EndReport() {
  run_([&] { return Stop(); }, [&] { control_.Clear("Report"); },
       [&] { ShowNoDataDialog("Report"); },
       [&] {
         control_.CallOffWatchdog();
         buttons_.Command2.Enabled = true;
         upper_.Report->ReportEnded();
       });
}

void NoDataWatchdog::EndRecording() {
  run_([&] { return Stop(); }, [&] { control_.Clear("LookingForRecording"); },
       [&] { upper_.Session->NoData(); }, [&] { ShowNoDataDialog("LookingForRecording"); },
       [&] { control_.CallOffWatchdog(); }, [&] { buttons_.CWButton3.Value = false; },
       [&] { buttons_.CWButton3.Enabled = true; }, [&] { upper_.Tabs->TabChange(); });
}

void NoDataWatchdog::EndFinder() {
  run_([&] { return Stop(); },
       [&] {
         control_.Clear("LookingForID");
         control_.CallOffWatchdog();
       },
       [&] { ShowNoDataDialog("LookingForID"); }, [&] { upper_.Finder->UnloadIDlook(); });
}

void NoDataWatchdog::EndViews() {
  const Flow stopped = run_([&] { return Stop(); },
                            [&] {
                              // `LookingForPhases` falls in the stop path of its button.
                              control_.Clear("LookingForValues");
                              control_.Clear("LookingForScope");
                            },
                            [&] { ShowNoDataDialog("LookingForValues"); });
  if (stopped == Flow::Leave) return;
  control_.CallOffWatchdog();
  buttons_.CWButton1.Enabled = false;
  buttons_.CWButton4.Enabled = false;
  control_.ReleaseButtons();
  for (const ModeName view : SwitchOffOrder) {
    run_([&] { view.Find()->RunButton(buttons_).Value = false; });
  }
  LockViews();
}

void NoDataWatchdog::LockViews() {
  // The stop path of the scope has given its button back, and that of the phasors has not run where
  // another view did; all three wait.
  buttons_.CWButton1.Enabled = false;
  buttons_.CWButton2.Enabled = false;
  buttons_.ShowIdleTips();
}

void NoDataWatchdog::ShowNoDataDialog(ModeName mode) {
  const std::string text = std::string(mode.Find()->NoData) + " No data received!" + Crlf + Crlf +
                           "Reasons:" + Crlf + "- check cable (crossed/straight network cable)" +
                           Crlf + "- check your choice of the network adapter" + Crlf +
                           "- check setup of your network connection (half duplex!)" + Crlf +
                           "- check correct filter setup (filter condition, filter content)" +
                           Crlf + "- run 'Find streams' on tab 'Setup'" + Crlf + Crlf +
                           "If it still fails, please restart the program and try it again.";
  services_.Dialogs.ShowTimed({"Attention", text, "Close", "Verdana", true, DialogSeconds,
                               "This window will be closed after: #sec# seconds."});
}

}  // namespace packetroutines
