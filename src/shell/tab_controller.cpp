#include "shell/tab_controller.h"

#include <string>
#include <utility>

#include "config/setup_view.h"
#include "platform/failure.h"

namespace formroutines {

using platform::Crlf;
using platform::Failure;
using platform::Flow;
using platform::Verdict;

namespace {

/// A close request that came too early is tried again this often, in ms.
constexpr std::int32_t CloseRetry = 100;
/// How long the end of capture is awaited, in steps of `CaptureWait` ms.
constexpr int CaptureWaits = 100;
constexpr std::int32_t CaptureWait = 10;

}  // namespace

TabController::TabController(forms::Main& main, config::Settings& settings,
                             const config::Session& session, subroutines::SettingsFile& file,
                             packetroutines::AcquisitionState& state,
                             packetroutines::CaptureSession& capture, platform::EventQueue& events,
                             platform::Dialogs& dialogs, platform::Program& program,
                             const platform::FileSystem& files, TabViews& views,
                             platform::TimerQueue& timers)
    : main_(main),
      settings_(settings),
      session_(session),
      file_(file),
      state_(state),
      capture_(capture),
      events_(events),
      dialogs_(dialogs),
      program_(program),
      files_(files),
      views_(views),
      closeTimer_(timers) {
  main_.TabStrip1.Changed = [this] { TabChange(); };
  main_.Window.QueryUnload = [this] { CloseRequest(); };
  closeTimer_.Interval = CloseRetry;
  closeTimer_.Elapsed = [this] { RetryClose(); };
}

void TabController::PassFirstTab() {
  SelectForLayout(InfoTab);
}

void TabController::ReturnToTab(std::int16_t tab) {
  // Where another tab was chosen in a pump of the passage, the way back is a change of its own.
  if (tab == settings_.MainActiveTab) {
    SelectForLayout(tab);
  } else {
    main_.TabStrip1.SelectedTab = tab;
  }
}

void TabController::SelectForLayout(std::int16_t tab) {
  forLayout_ = true;
  main_.TabStrip1.SelectedTab = tab;
}

void TabController::TabChange() {
  // A change inside of one of the pumps below is the user's own.
  const bool forLayout = std::exchange(forLayout_, false);
  if (main_.TabStrip1.SelectedTab == ExitTab) {
    Exit();
    return;
  }
  Run([&] { events_.Pump(); },
      [&] {
        if (!forLayout) settings_.MainActiveTab = main_.TabStrip1.SelectedTab;
      },
      [&] { events_.Pump(); },
      [&] {
        if (!forLayout) file_.SaveActiveTab();
      },
      [&] { ++state_.Leaving; }, [&] { capture_.StopCapture(); }, [&] { ClearModes(); },
      [&] { StopButtons(); }, [&] { HideViews(); }, [&] { ShowView(); }, [&] { --state_.Leaving; });
}

Verdict TabController::OnFailure(const Failure& failure) {
  if (failure.Number() == platform::failure::HarmlessStop) return Verdict::SkipStep;
  dialogs_.Show({"unknown...",
                 std::string("unknown error. ") + Crlf + failure.Text() + Crlf +
                     "this happens while changing tabs",
                 platform::Icon::Critical});
  return Verdict::EndProgram;
}

void TabController::Exit() {
  platform::RunSteps(
      program_, [](const Failure&) { return Verdict::SkipStep; },
      [&] {
        // A start or a stop is still in progress: back to the view, nothing is closed.
        if (!RunButtonLocked()) return Flow::Next;
        main_.TabStrip1.SelectedTab = settings_.MainActiveTab;
        return Flow::Leave;
      },
      [&] { ++state_.Leaving; }, [&] { ++state_.TabChanges; }, [&] { capture_.StopCapture(); },
      [&] { AwaitEndOfCapture(); }, [&] { ClearModes(); }, [&] { events_.Pump(); },
      [&] { exitInProgress_ = true; }, [&] { ShutdownForms(); }, [&] { events_.Pump(); },
      [&] { main_.Window.Unload(); });
}

bool TabController::RunButtonLocked() const {
  switch (settings_.MainActiveTab) {
    case ValuesTab:
      return !main_.CWButton4.Enabled;
    case PhasorTab:
      return !main_.CWButton2.Enabled;
    case WaveformsTab:
      return !main_.CWButton1.Enabled;
    case RecorderTab:
      return !main_.CWButton3.Enabled;
    default:
      return false;
  }
}

void TabController::AwaitEndOfCapture() {
  // Only a stop that failed leaves capture running; it is tried again rather than waited for
  // without an end.
  for (int i = 0; state_.CaptureRunning && i < CaptureWaits; ++i) {
    events_.WaitMs(CaptureWait);
    capture_.StopCapture();
  }
}

void TabController::ShutdownForms() {
  if (shuttingDown_) return;
  shuttingDown_ = true;
  const auto skip = [](const Failure&) { return Verdict::SkipStep; };
  platform::RunSteps(
      program_, skip, [&] { main_.Timer1.Enabled = false; }, [&] { main_.Timer2.Enabled = false; },
      [&] { main_.Timer3.Enabled = false; });
  for (platform::Window* form : OtherForms) {
    platform::RunSteps(program_, skip, [&] { form->Unload(); });
  }
  platform::RunSteps(program_, skip, [&] { main_.Window.Unload(); });
  shuttingDown_ = false;
}

void TabController::CloseRequest() {
  if (exitInProgress_) return;
  main_.TabStrip1.SelectedTab = ExitTab;
  // The request stands: it is served as soon as the run button is free again.
  if (!exitInProgress_) closeTimer_.Enabled = true;
}

void TabController::RetryClose() {
  if (RunButtonLocked()) return;
  closeTimer_.Enabled = false;
  CloseRequest();
}

void TabController::ClearModes() {
  ++state_.TabChanges;
  state_.ClearModes();
}

void TabController::StopButtons() {
  main_.Check5.Visible = false;
  main_.CWButton3.Visible = false;
  main_.CWButton4.Visible = false;
  Run([&] { main_.CWButton4.Value = false; }, [&] { main_.CWButton1.Value = false; },
      [&] { GiveLockedButtonsBack(); });
}

void TabController::GiveLockedButtonsBack() {
  // A locked button does not run its stop path, and a run that is left before its first frame, or
  // whose stop path failed, would leave it locked for good.
  const bool locked =
      !main_.CWButton4.Enabled || !main_.CWButton2.Enabled || !main_.CWButton1.Enabled;
  if (locked) main_.Timer3.Enabled = true;
  main_.ShowIdleTips();
}

bool TabController::HasSecondStream() const {
  return !main_.Text1[forms::setup_field::Content2].Text.Get().empty();
}

}  // namespace formroutines
