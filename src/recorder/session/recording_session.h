#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/plug.h"
#include "base/trap.h"
#include "capture/acquisition_state.h"
#include "capture/capture_session.h"
#include "capture/consumers.h"
#include "capture/run_control.h"
#include "config/stored_settings.h"
#include "forms/recorder_controls.h"
#include "platform/controls/quiet_line.h"
#include "recorder/events/recording_events.h"
#include "recorder/reading/check_offer.h"
#include "recorder/reading/record_reader.h"
#include "recorder/session/end_reason.h"
#include "recorder/session/recording_parts.h"
#include "recorder/session/recording_span.h"
#include "recorder/session/session_files.h"
#include "recorder/writing/recorder_services.h"
#include "recorder/writing/recording_end.h"
#include "recorder/writing/writing.h"

namespace subroutines {

/// A recording from RUN to STOP: the button, the choice of the format, the name of the files, and
/// what is done in which order when a recording begins and ends. It always starts at once; nothing
/// is written before the first ring is full.
///
/// A start and a stop pump, and are entered again by what comes in: the phase decides what a press
/// means. What fails in them is told on the view's line, and the steps behind it are done all the
/// same, so that a recording that has lost its disk ends like any other.
class RecordingSession : public packetroutines::RecordingEnd,
                         public packetroutines::SessionConsumer {
 public:
  RecordingSession(forms::RecorderControls& recorder, platform::QuietLine& line,
                   packetroutines::RunControl& run, config::Settings& settings,
                   StoredSettings& stored, packetroutines::AcquisitionState& state,
                   packetroutines::CaptureSession& capture, packetroutines::Writing& writing,
                   packetroutines::RecordingEvents& events,
                   const packetroutines::RecorderServices& services);

  /// What follows a recording.
  platform::Plug<packetroutines::RecordReader> Reader;
  /// Whom the end of a recording is told.
  platform::Plug<EndListener> Listener;
  /// What is offered as long as none is under way.
  platform::Plug<packetroutines::CheckOffer> Check;

  /// The first state of the view's button.
  void Load();
  /// Selects the choice that matches the stored format; an unknown one selects nothing.
  void ShowFileFormat();
  /// A recording is being started or finished; in its pumps capture rests, and the run goes on.
  bool InHand() const { return phase_ == Phase::Starting || phase_ == Phase::Stopping; }
  /// From RUN to the end, the first ring awaited included; not in the pumps of either.
  bool Running() const;
  /// The moment of its RUN.
  const platform::LocalTime& Since() const { return span_.Since(); }
  /// Capture was stopped from outside, and what was recorded ends.
  void Interrupt(EndReason reason);
  /// The same where the program ends as well: the files get their end, but no log.
  void InterruptForGood(EndReason reason);
  /// No frame has come since RUN: what waits for one begins anew, with the length of the frames
  /// that come by now, and under the name of this moment. Who does so needs no watchdog.
  void AwaitAnew();
  /// From the next RUN on the recording goes on in new files whenever one has held so long; 0 for
  /// one file, as at first.
  void DivideEvery(std::chrono::nanoseconds span) { parts_.Every(span); }
  /// What is to see each ring that is written.
  packetroutines::RingWitness& Rings() { return parts_; }
  /// What is to know of an adapter that goes and comes.
  packetroutines::AdapterConsumer& Adapter() { return parts_; }
  /// Files of the name at hand may be there, and are of this recording.
  bool AnyBegun() const { return parts_.Begun(); }
  /// The files that a divided recording had before those at hand.
  std::int64_t FilesBefore() const { return parts_.Before(); }
  /// Nothing else is done for a recording that is still there.
  void ProgramEnds() { Ended(EndReason::ProgramEnd); }
  void NoData() override { Ended(EndReason::NoData); }
  void StopAtRowLimit() override { StopAt(0); }
  void StopAtRowLimit2() override { StopAt(1); }
  void StopOnFullDisk() override;

 private:
  /// `Recording` stands until the next press also where a change of the tab has ended the run.
  enum class Phase { Idle, Starting, Recording, Stopping };
  class Stopping;
  /// What becomes of the frames that have arrived and wait: they are stored first, unless the ring
  /// of one who ends the recording is not free for them.
  enum class Arrived { Stored, Dropped };

  void CWButton3_ValueChanged();
  void Option2_Click(std::size_t index);

  void Start();
  platform::Flow Prepare();
  /// Capture begins for files that have their names.
  void BeginCapture();
  void BeginProgress();
  void LockFormats();
  void NameFiles();
  void DropStart();
  void Stop(EndReason reason, Arrived arrived);
  /// Every end of a recording comes through here, and the first one counts.
  void Ended(EndReason reason);
  void BuildLog(bool found);
  /// Where the totals of two streams stand.
  void TellOfTotals();
  void ShowRecorded(bool found);
  void StopCapture(Arrived arrived);
  void StopAt(std::size_t stream);
  /// Another tab was entered since the press of RUN; its view is left alone.
  bool Left() const { return visit_.Over(); }
  /// The start may go on: its view is there, and its button was not pressed again.
  bool GoesOn() const { return !Left() && recorder_.CWButton3.Value; }
  /// What is recorded has a log and a quick view.
  bool HasLog() const;
  std::string PathOf(const std::string& name) const;
  /// Sets the button without any step of a recording.
  void SetQuietly(bool value);
  /// Why there is no button, as long as a run has none.
  void TellWhatStopWaitsFor();
  void EnableFormats(bool enabled);
  platform::Label& Line(std::size_t line) { return recorder_.Label10[line]; }

  forms::RecorderControls& recorder_;
  packetroutines::RunControl& run_;
  config::Settings& settings_;
  StoredSettings& stored_;
  packetroutines::AcquisitionState& state_;
  packetroutines::CaptureSession& capture_;
  packetroutines::Writing& writing_;
  packetroutines::RecordingEvents& events_;
  packetroutines::RecorderServices services_;
  packetroutines::SessionFiles files_;
  RecordingParts parts_;
  RecordingSpan span_;
  Phase phase_ = Phase::Idle;
  /// On the page, from the press of RUN on.
  packetroutines::PageVisit visit_;
};

}  // namespace subroutines
