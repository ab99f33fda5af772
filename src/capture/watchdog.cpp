#include "capture/watchdog.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/failure.h"

namespace packetroutines {

using platform::Crlf;
using platform::Failure;
using platform::Verdict;

namespace {

/// The no-data dialog closes by itself after this time.
constexpr std::int32_t DialogSeconds = 30;

}  // namespace

Watchdog::Watchdog(AcquisitionState& state, const config::Settings& settings, forms::Main& main,
                   CaptureSession& capture, TabConsumer& tabs, ReportConsumer& finder,
                   platform::EventQueue& events, platform::Dialogs& dialogs,
                   platform::Program& program)
    : state_(state),
      settings_(settings),
      main_(main),
      capture_(capture),
      tabs_(tabs),
      finder_(finder),
      events_(events),
      dialogs_(dialogs),
      program_(program) {
  main_.Timer1.Elapsed = [this] { Timer1_Timer(); };
  main_.Timer2.Elapsed = [this] { Timer2_Timer(); };
  main_.Timer3.Elapsed = [this] { Timer3_Timer(); };
}

template <typename... Steps>
void Watchdog::Run(Steps... steps) {
  platform::RunSteps(
      program_, [this](const Failure& failure) { return OnFailure(failure); }, std::move(steps)...);
}

Verdict Watchdog::OnFailure(const Failure& failure) {
  if (failure.Number() == platform::failure::HarmlessStop) return Verdict::SkipStep;
  dialogs_.Show({"unknown...",
                 std::string("unknown error. ") + Crlf + failure.Text() + Crlf +
                     "this happens while getting timeout",
                 platform::Icon::Critical});
  return Verdict::EndProgram;
}

void Watchdog::Timer1_Timer() {
  if (state_.ReportRequested) {
    EndReport();
  } else if (state_.LookingForRecording) {
    EndRecording();
  } else if (state_.LookingForID) {
    EndFinder();
  } else if (state_.LookingForValues || state_.LookingForScope || state_.LookingForPhases) {
    EndView();
  } else {
    main_.Timer1.Enabled = false;
  }
}

void Watchdog::EndReport() {
  Run([&] { capture_.StopCapture(); }, [&] { state_.ReportRequested = false; },
      [&] { ShowNoDataDialog("Building a report for required data isn't possible!"); },
      [&] { main_.Timer1.Enabled = false; }, [&] { main_.Command2.Enabled = true; });
}

void Watchdog::EndRecording() {
  Run([&] { capture_.StopCapture(); }, [&] { state_.LookingForRecording = false; },
      [&] { ShowNoDataDialog("Recording isn't possible!"); }, [&] { main_.Timer1.Enabled = false; },
      [&] { main_.CWButton3.Value = false; }, [&] { main_.CWButton3.Enabled = true; },
      [&] { tabs_.TabChange(); });
}

void Watchdog::EndFinder() {
  Run([&] { capture_.StopCapture(); }, [&] { state_.LookingForID = false; },
      [&] { main_.Timer1.Enabled = false; }, [&] { ShowNoDataDialog(""); },
      [&] { finder_.UnloadIDlook(); });
}

void Watchdog::EndView() {
  // `LookingForPhases` falls in the stop path of its button.
  Run([&] { capture_.StopCapture(); }, [&] { state_.LookingForValues = false; },
      [&] { state_.LookingForScope = false; }, [&] { ShowNoDataDialog(""); },
      [&] { main_.Timer1.Enabled = false; }, [&] { main_.CWButton1.Enabled = false; },
      [&] { main_.CWButton4.Enabled = false; }, [&] { main_.Timer3.Enabled = true; },
      [&] { main_.CWButton4.Value = false; }, [&] { main_.CWButton1.Value = false; },
      [&] { main_.CWButton2.Value = false; },
      [&] {
        // The stop path of the scope has given its button back; it waits like the others.
        main_.CWButton1.Enabled = false;
        main_.ShowIdleTips();
      });
}

void Watchdog::Timer2_Timer() {
  main_.Timer2.Enabled = false;
  if (state_.LookingForScope && !main_.CWButton1.Value) return;
  if (state_.LookingForValues && !main_.CWButton4.Value) return;
  if (state_.LookingForPhases && !main_.CWButton2.Value) return;
  Restart(state_.LookingForValues, "LookingForValues", [&] { events_.Pump(); });
  Restart(state_.LookingForPhases, "LookingForPhases", [&] { events_.Pump(); });
  Restart(state_.LookingForScope, "LookingForScope", [] {});
  Restart(state_.LookingForID, "LookingForID", [&] { events_.Pump(); });
}

template <typename Pump>
void Watchdog::Restart(bool lookingFor, const char* mode, Pump pump) {
  if (!lookingFor || state_.Leaving > 0) return;
  const std::uint32_t tabChanges = state_.TabChanges;
  // A delay below 0 is none.
  events_.WaitMs(std::max<std::int16_t>(settings_.InternalDelay, 0));
  pump();
  if (state_.TabChanges == tabChanges) capture_.StartCapture(mode);
}

void Watchdog::Timer3_Timer() {
  main_.CWButton2.Enabled = true;
  main_.CWButton4.Enabled = true;
  main_.CWButton1.Enabled = true;
  main_.Timer3.Enabled = false;
  main_.ShowIdleTips();
}

void Watchdog::ShowNoDataDialog(const std::string& prefix) {
  const std::string text = prefix + " No data received!" + Crlf + Crlf + "Reasons:" + Crlf +
                           "- check cable (crossed/straight network cable)" + Crlf +
                           "- check your choice of the network adapter" + Crlf +
                           "- check setup of your network connection (half duplex!)" + Crlf +
                           "- check correct filter setup (filter condition, filter content)" +
                           Crlf + "- run 'Find streams' on tab 'Setup'" + Crlf + Crlf +
                           "If it still fails, please restart the program and try it again.";
  dialogs_.ShowTimed({"Attention", text, "Close", "Verdana", true, DialogSeconds,
                      "This window will be closed after: #sec# seconds."});
}

}  // namespace packetroutines
