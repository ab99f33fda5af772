#pragma once

#include <cstdint>
#include <vector>

#include "base/trap.h"
#include "capture/acquisition_state.h"
#include "capture/capture_session.h"
#include "capture/consumers.h"
#include "capture/modes.h"
#include "config/settings.h"
#include "config/stored_settings.h"
#include "forms/main_form.h"
#include "platform/controls/window.h"
#include "platform/loop/timer_queue.h"
#include "platform/services/file_system.h"
#include "platform/services/services.h"

namespace formroutines {

/// What a tab asks of views that other folders build.
class TabViews {
 public:
  virtual ~TabViews() = default;
  /// Selects the recorder's format that is stored.
  virtual void ShowFileFormat() = 0;
  /// Builds the rows of the report, once.
  virtual void ReportLayout() = 0;
};

/// Changes the tab: every change stops the acquisition as a whole, clears the mode flags and brings
/// up the controls of the tab. No view starts the acquisition by being entered. The last tab ends
/// the program.
class TabController : public packetroutines::TabConsumer {
 public:
  TabController(forms::Main& main, config::Settings& settings, const config::RunSettings& present,
                subroutines::StoredSettings& stored, packetroutines::AcquisitionState& state,
                packetroutines::CaptureSession& capture, const platform::Services& services,
                const platform::FileSystem& files, TabViews& views, platform::TimerQueue& timers);

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

  /// The forms other than the main window.
  std::vector<platform::Window*> OtherForms;

 private:
  platform::Verdict OnFailure(const platform::Failure& failure);

  void Exit();
  bool RunButtonLocked() const;
  void AwaitEndOfCapture();
  void CloseRequest();
  void RetryClose();

  void SelectForLayout(std::int16_t tab);
  void ClearModes();
  void StopButtons();
  void GiveLockedButtonsBack();
  void HideViews();
  void ShowView();
  void ShowValues();
  void ShowPhasor();
  void ShowWaveforms();
  void ShowRecorder();
  void ResetProgress();
  void ShowRecorderPaths();
  void RefuseStoragePath();
  void ShowReport();
  void ChooseStation(std::size_t first);
  bool HasSecondStream() const;

  forms::Main& main_;
  config::Settings& settings_;
  const config::RunSettings& present_;
  subroutines::StoredSettings& stored_;
  packetroutines::AcquisitionState& state_;
  packetroutines::CaptureSession& capture_;
  platform::Services services_;
  const platform::FileSystem& files_;
  TabViews& views_;
  platform::Timer closeTimer_;
  /// Runs steps under the trap of a tab change. A statement that lets events in is a step of its
  /// own, so that what fails in an event does not keep the statements behind it from running.
  platform::Routine run_;
  bool forLayout_ = false;
  bool exitInProgress_ = false;
  bool shuttingDown_ = false;
};

}  // namespace formroutines
