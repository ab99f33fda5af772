#pragma once

#include <cstdint>
#include <vector>

#include "base/trap.h"
#include "capture/acquisition.h"
#include "capture/consumers.h"
#include "capture/view.h"
#include "config/configuration.h"
#include "forms/windows.h"
#include "platform/controls/window.h"
#include "platform/loop/timer_queue.h"
#include "platform/services/services.h"
#include "shell/recording_question.h"

namespace formroutines {

/// The views of all tabs.
using Views = std::vector<packetroutines::View*>;

/// Changes the tab: every change stops the acquisition as a whole, clears the mode flags and brings
/// up the controls of the tab. No view starts the acquisition by being entered. The last tab ends
/// the program.
class TabController : public packetroutines::TabConsumer {
 public:
  TabController(forms::Windows& windows, config::Configuration& config,
                packetroutines::Acquisition& acquisition, const Views& views,
                RecordingQuestion& question, const platform::Services& services,
                platform::TimerQueue& timers);

  /// Brings the strip up on the first tab, and hides what the other views show.
  void Load();
  /// Selects the tab of the last run, unless that was the way out, and enters it.
  void OpenLastTab(std::int16_t tab);
  void TabChange() override;
  /// Selects the first tab for the time of a layout, as at any change; but it does not become the
  /// tab in use, and the store keeps what it holds.
  void PassFirstTab();
  /// Selects the tab that was there before the layout.
  void ReturnToTab(std::int16_t tab);
  /// Stops the timers and unloads every open form.
  void ShutdownForms();

 private:
  platform::Verdict OnFailure(const platform::Failure& failure);

  void Exit();
  bool RunButtonLocked() const;
  void AwaitEndOfCapture();
  void CloseRequest();
  void Close();
  void RetryClose();

  void SelectForLayout(std::int16_t tab);
  void LeavePage(packetroutines::Leaving what);
  void StopButtons();
  void GiveLockedButtonsBack();
  void ShowView();

  forms::Windows& windows_;
  forms::Main& main_;
  forms::RunButtons buttons_;
  config::Settings& settings_;
  subroutines::StoredSettings& stored_;
  const packetroutines::RunFields& state_;
  packetroutines::CaptureSession& capture_;
  packetroutines::RunControl& control_;
  const Views& views_;
  RecordingQuestion& question_;
  platform::Services services_;
  platform::Timer closeTimer_;
  /// Runs steps under the trap of a tab change. A statement that lets events in is a step of its
  /// own, so that what fails in an event does not keep the statements behind it from running.
  platform::Routine run_;
  bool forLayout_ = false;
  bool exitInProgress_ = false;
  bool shuttingDown_ = false;
};

}  // namespace formroutines
