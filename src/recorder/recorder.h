#pragma once

#include <cstdint>

#include "base/trap.h"
#include "capture/acquisition.h"
#include "capture/view.h"
#include "config/configuration.h"
#include "forms/main_form.h"
#include "recorder/events/recording_events.h"
#include "recorder/reading/record_analysis.h"
#include "recorder/reading/record_check.h"
#include "recorder/session/recording_session.h"
#include "recorder/session/trigger_block.h"
#include "recorder/writing/recorder_services.h"
#include "recorder/writing/writing.h"

namespace subroutines {

/// The Recorder view: the session from RUN to STOP, what writes the samples, and what reads a
/// recording back.
class Recorder : public packetroutines::View {
 public:
  Recorder(forms::Main& main, config::Configuration& config,
           packetroutines::Acquisition& acquisition,
           const packetroutines::RecorderServices& services);

  std::int16_t Tab() const override { return forms::tab::Recorder; }
  void Load() override;
  void Withdraw() override;
  /// Where the folder for data is not there, the way leads on to the Setup view.
  void Show(const platform::Routine& run) override;
  void Hide() override;
  void Interrupt(packetroutines::Leaving what) override;
  bool InHand() const override { return Session.InHand(); }
  /// The system ends the program: a recording ends with all its files.
  void EndSession() { Session.InterruptForGood(EndReason::SessionsEnd); }
  /// The program ends: finishes the files that are still open, and brings what was written to the
  /// disk, unless that takes long.
  void CloseFiles();

  packetroutines::Writing Writing;
  packetroutines::RecordingEvents Events;
  packetroutines::RecordAnalysis Reading;
  packetroutines::RecordCheck Check;
  RecordingSession Session;
  TriggerBlock Trigger;

 private:
  void ResetProgress();
  void ShowPaths();
  void RefusePath(const platform::Routine& run);

  forms::Main& main_;
  const config::Configuration& config_;
  packetroutines::AcquisitionState& state_;
  const packetroutines::Plugs& upper_;
  packetroutines::RecorderServices services_;
};

}  // namespace subroutines
