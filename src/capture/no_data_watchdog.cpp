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

NoDataWatchdog::NoDataWatchdog(AcquisitionState& state, forms::TimerControls& timers,
                               const forms::RunButtons& buttons, CaptureSession& capture,
                               TabConsumer& tabs, FinderConsumer& finder,
                               const platform::Services& services)
    : state_(state),
      timers_(timers),
      buttons_(buttons),
      capture_(capture),
      tabs_(tabs),
      finder_(finder),
      services_(services),
      run_(services.Program, [this](const Failure& failure, int) { return OnFailure(failure); }) {
  timers_.Timer1.Elapsed = [this] { Timer1_Timer(); };
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
    EndView();
  } else {
    timers_.Timer1.Enabled = false;
  }
}

Flow NoDataWatchdog::Stop() {
  return capture_.StopCapture() ? Flow::Next : Flow::Leave;
}

void NoDataWatchdog::EndReport() {
  run_([&] { return Stop(); }, [&] { state_.ReportRequested = false; },
       [&] { ShowNoDataDialog("Building a report for required data isn't possible!"); },
       [&] { timers_.Timer1.Enabled = false; }, [&] { buttons_.Command2.Enabled = true; });
}

void NoDataWatchdog::EndRecording() {
  run_([&] { return Stop(); }, [&] { state_.LookingForRecording = false; },
       [&] { ShowNoDataDialog("Recording isn't possible!"); },
       [&] { timers_.Timer1.Enabled = false; }, [&] { buttons_.CWButton3.Value = false; },
       [&] { buttons_.CWButton3.Enabled = true; }, [&] { tabs_.TabChange(); });
}

void NoDataWatchdog::EndFinder() {
  run_([&] { return Stop(); }, [&] { state_.LookingForID = false; },
       [&] { timers_.Timer1.Enabled = false; }, [&] { ShowNoDataDialog(""); },
       [&] { finder_.UnloadIDlook(); });
}

void NoDataWatchdog::EndView() {
  // `LookingForPhases` falls in the stop path of its button.
  run_([&] { return Stop(); }, [&] { state_.LookingForValues = false; },
       [&] { state_.LookingForScope = false; }, [&] { ShowNoDataDialog(""); },
       [&] { timers_.Timer1.Enabled = false; }, [&] { buttons_.CWButton1.Enabled = false; },
       [&] { buttons_.CWButton4.Enabled = false; }, [&] { timers_.Timer3.Enabled = true; },
       [&] { buttons_.CWButton4.Value = false; }, [&] { buttons_.CWButton1.Value = false; },
       [&] { buttons_.CWButton2.Value = false; },
       [&] {
         // The stop path of the scope has given its button back, and that of the phasors has not
         // run where another view did; all three wait.
         buttons_.CWButton1.Enabled = false;
         buttons_.CWButton2.Enabled = false;
         buttons_.ShowIdleTips();
       });
}

void NoDataWatchdog::ShowNoDataDialog(const std::string& prefix) {
  const std::string text = prefix + " No data received!" + Crlf + Crlf + "Reasons:" + Crlf +
                           "- check cable (crossed/straight network cable)" + Crlf +
                           "- check your choice of the network adapter" + Crlf +
                           "- check setup of your network connection (half duplex!)" + Crlf +
                           "- check correct filter setup (filter condition, filter content)" +
                           Crlf + "- run 'Find streams' on tab 'Setup'" + Crlf + Crlf +
                           "If it still fails, please restart the program and try it again.";
  services_.Dialogs.ShowTimed({"Attention", text, "Close", "Verdana", true, DialogSeconds,
                               "This window will be closed after: #sec# seconds."});
}

}  // namespace packetroutines
