#include "shell/tab_controller.h"

#include <algorithm>
#include <initializer_list>
#include <string>
#include <utility>

#include "base/failure.h"
#include "base/raised.h"

namespace formroutines {

using packetroutines::Leaving;
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

TabController::TabController(forms::Windows& windows, config::Configuration& config,
                             packetroutines::Acquisition& acquisition, const Views& views,
                             RecordingQuestion& question, const platform::Services& services,
                             platform::TimerQueue& timers)
    : windows_(windows),
      main_(windows.Main),
      buttons_(windows.Main.Buttons()),
      settings_(config.Settings),
      stored_(config.Stored),
      state_(acquisition.State),
      capture_(acquisition.Capture),
      control_(acquisition.Run),
      views_(views),
      question_(question),
      services_(services),
      closeTimer_(timers),
      run_(services.Program, [this](const Failure& failure, int) { return OnFailure(failure); }) {
  acquisition.Upper.Tabs = *this;
  main_.TabStrip1.Changed = [this] { TabChange(); };
  main_.TabStrip1.MayChoose = [this](std::int16_t tab) {
    return question_.Allows([this, tab] { main_.TabStrip1.SelectedTab = tab; });
  };
  main_.Command8.Click = [this] { services_.Program.End(); };
  main_.Window.QueryUnload = [this] { CloseRequest(); };
  closeTimer_.Interval = CloseRetry;
  closeTimer_.Elapsed = [this] { RetryClose(); };
}

void TabController::Load() {
  for (platform::Control* leftover : std::initializer_list<platform::Control*>{
           &main_.Command8, &main_.Picture3, &main_.Picture5, &main_.Picture6}) {
    leftover->Visible = false;
  }
  main_.TabStrip1.ColorFrom = platform::Rgb{255, 255, 255};
  main_.TabStrip1.ColorTo = platform::Rgb{52, 153, 254};
  main_.TabStrip1.Left = 0;
  main_.TabStrip1.Top = 0;
  // What every change of tab does before it shows its own view.
  main_.TabStrip1.SelectedTab = forms::tab::Info;
}

void TabController::OpenLastTab(std::int16_t tab) {
  if (tab > 0 && tab < forms::tab::Exit) main_.TabStrip1.SelectedTab = tab;
  TabChange();
}

void TabController::PassFirstTab() {
  SelectForLayout(forms::tab::Info);
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
  if (main_.TabStrip1.SelectedTab == forms::tab::Exit) {
    Exit();
    return;
  }
  run_([&] { services_.Events.Pump(); },
       [&] {
         if (!forLayout) settings_.MainActiveTab = main_.TabStrip1.SelectedTab;
       },
       [&] { services_.Events.Pump(); },
       [&] {
         if (!forLayout) stored_.SaveActiveTab();
       },
       [&] {
         control_.Leave();
         capture_.StopCapture();
       },
       [&] {
         LeavePage(Leaving::Tab);
         StopButtons();
       },
       [&] { ShowView(); }, [&] { control_.Left(); });
}

Verdict TabController::OnFailure(const Failure& failure) {
  if (failure.Number() == platform::failure::HarmlessStop) return Verdict::SkipStep;
  services_.Dialogs.Show({"unknown...",
                          std::string("unknown error. ") + Crlf + failure.Text() + Crlf +
                              "this happens while changing tabs",
                          platform::Icon::Critical});
  return Verdict::EndProgram;
}

void TabController::Exit() {
  platform::RunSteps(
      services_.Program, [](const Failure&) { return Verdict::SkipStep; },
      [&] {
        // A start or a stop is still in progress: back to the view, nothing is closed.
        if (!RunButtonLocked()) return Flow::Next;
        main_.TabStrip1.SelectedTab = settings_.MainActiveTab;
        return Flow::Leave;
      },
      [&] {
        control_.Leave();
        control_.LeavePage();
        capture_.StopCapture();
        AwaitEndOfCapture();
        LeavePage(Leaving::Program);
      },
      [&] { services_.Events.Pump(); },
      [&] {
        exitInProgress_ = true;
        ShutdownForms();
      },
      [&] { services_.Events.Pump(); }, [&] { main_.Window.Unload(); });
}

bool TabController::RunButtonLocked() const {
  for (const packetroutines::View* view : views_) {
    const packetroutines::Mode* mode = view->RunMode();
    // A report does not hold up the end of the program.
    if (mode == nullptr || mode->Kind == packetroutines::ModeKind::SingleFrame) continue;
    if (view->Tab() == settings_.MainActiveTab) return !mode->RunButton(buttons_).Enabled;
  }
  return false;
}

void TabController::AwaitEndOfCapture() {
  // Only a stop that failed leaves capture running; it is tried again rather than waited for
  // without an end.
  for (int i = 0; state_.CaptureRunning && i < CaptureWaits; ++i) {
    services_.Events.WaitMs(CaptureWait);
    capture_.StopCapture();
  }
}

void TabController::ShutdownForms() {
  if (shuttingDown_) return;
  const platform::Raised shuttingDown(shuttingDown_);
  const auto skip = [](const Failure&) { return Verdict::SkipStep; };
  control_.CallOffTimers();
  for (platform::Window* window :
       {&windows_.EndQuestion.Window, &windows_.Revisionhistory.Window,
        &windows_.DebugWindow.Window, &windows_.IDlook.Window, &main_.Window}) {
    platform::RunSteps(services_.Program, skip, [&] { window->Unload(); });
  }
}

void TabController::CloseRequest() {
  if (exitInProgress_) return;
  if (question_.Allows([this] { Close(); })) Close();
}

void TabController::Close() {
  main_.TabStrip1.SelectedTab = forms::tab::Exit;
  // The request stands: it is served as soon as the run button is free again.
  if (!exitInProgress_) closeTimer_.Enabled = true;
}

void TabController::RetryClose() {
  if (RunButtonLocked()) return;
  closeTimer_.Enabled = false;
  CloseRequest();
}

void TabController::LeavePage(Leaving what) {
  control_.LeavePage();
  control_.ClearModes();
  for (packetroutines::View* view : views_) view->Interrupt(what);
}

void TabController::StopButtons() {
  for (packetroutines::View* view : views_) view->Withdraw();
  for (const packetroutines::ModeName name : packetroutines::SwitchOffOrder) {
    const packetroutines::Mode& mode = *name.Find();
    if (mode.OffWithTab) run_([&] { mode.RunButton(buttons_).Value = false; });
  }
  GiveLockedButtonsBack();
}

void TabController::GiveLockedButtonsBack() {
  // A locked button does not run its stop path, and a run that is left before its first frame, or
  // whose stop path failed, would leave it locked for good.
  const auto locked = [this](const packetroutines::Mode& mode) {
    return packetroutines::IsLiveView(mode) && !mode.RunButton(buttons_).Enabled;
  };
  if (std::ranges::any_of(packetroutines::Modes, locked)) control_.ReleaseButtons();
  buttons_.ShowIdleTips();
}

void TabController::ShowView() {
  for (packetroutines::View* view : views_) view->Hide();
  // A view that comes up may let events in; a tab that is chosen in them shows its own view.
  const std::int16_t tab = main_.TabStrip1.SelectedTab;
  for (packetroutines::View* view : views_) {
    if (view->Tab() == tab) view->Show(run_);
  }
}

}  // namespace formroutines
