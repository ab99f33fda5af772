#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "capture/acquisition_state.h"
#include "capture/capture_session.h"
#include "capture/run_control.h"
#include "config/stored_settings.h"
#include "forms/recorder_controls.h"
#include "platform/services/calendar.h"
#include "platform/services/services.h"
#include "recorder/reading/record_reader.h"
#include "recorder/session/session_files.h"
#include "recorder/writing/recording_end.h"
#include "recorder/writing/sample_writer.h"

namespace subroutines {

/// What a recording is made with: the samples' writers, the files that are open, and what follows
/// the recording.
struct RecordingParts {
  const packetroutines::RecordContext& Context;
  const packetroutines::RecordWriters& Writers;
  packetroutines::SampleWriter& Samples;
  packetroutines::RecordReader& Reader;
};

/// What a recording asks of the platform beside the usual services.
struct RecordingServices {
  platform::Services Usual;
  const platform::Calendar& Calendar;
};

/// A recording from RUN to STOP: the button, the choice of the format, the name of the files, and
/// what is done in which order when a recording begins and ends. It always starts at once; nothing
/// is written before the first ring is full.
///
/// A start and a stop pump, and are entered again by what comes in: the phase decides what a press
/// means. What fails in them is told on the view's line, and the steps behind it are done all the
/// same, so that a recording that has lost its disk ends like any other.
class RecordingSession : public packetroutines::RecordingEnd {
 public:
  RecordingSession(forms::RecorderControls& recorder, packetroutines::RunControl& run,
                   config::Settings& settings, StoredSettings& stored,
                   packetroutines::AcquisitionState& state, packetroutines::CaptureSession& capture,
                   const RecordingParts& parts, const RecordingServices& services);

  /// The first state of the view's button.
  void Load();
  /// Selects the choice that matches the stored format; an unknown one selects nothing.
  void ShowFileFormat();
  /// A recording is being started or finished; in its pumps capture rests, and the run goes on.
  bool InHand() const { return phase_ == Phase::Starting || phase_ == Phase::Stopping; }
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
  void BeginProgress();
  void LockFormats();
  void NameFiles();
  void DropStart();
  void Stop(Arrived arrived);
  void StopCapture(Arrived arrived);
  void StopAt(std::size_t stream);
  /// Another tab was entered since the press of RUN; its view is left alone.
  bool Left() const { return visit_.Over(); }
  bool HasFormat(std::string_view format) const { return settings_.FileFormat == format; }
  /// Sets the button without any step of a recording.
  void SetQuietly(bool value);
  void EnableFormats(bool enabled);
  platform::Label& Line(std::size_t line) { return recorder_.Label10[line]; }

  forms::RecorderControls& recorder_;
  packetroutines::RunControl& run_;
  config::Settings& settings_;
  StoredSettings& stored_;
  packetroutines::AcquisitionState& state_;
  packetroutines::CaptureSession& capture_;
  RecordingParts parts_;
  RecordingServices services_;
  packetroutines::SessionFiles files_;
  Phase phase_ = Phase::Idle;
  /// On the page, from the press of RUN on.
  packetroutines::PageVisit visit_;
};

}  // namespace subroutines
