#pragma once

#include <cstdint>
#include <string>

#include "capture/acquisition_state.h"
#include "capture/capture_session.h"
#include "config/stored_settings.h"
#include "forms/recorder_controls.h"
#include "platform/services/calendar.h"
#include "platform/services/services.h"
#include "recorder/record_reader.h"
#include "recorder/sample_writer.h"

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
class RecordingSession : public packetroutines::RowLimits {
 public:
  RecordingSession(forms::RecorderControls& recorder, config::Settings& settings,
                   StoredSettings& stored, packetroutines::AcquisitionState& state,
                   packetroutines::CaptureSession& capture, const RecordingParts& parts,
                   const RecordingServices& services);

  /// The first state of the view's button.
  void Load();
  /// Selects the choice that matches the stored format; an unknown one selects nothing.
  void ShowFileFormat();
  /// The sheet of the first stream is full.
  void StopAtRowLimit() override { StopAt(0); }
  /// The sheet of the second stream is full.
  void StopAtRowLimit2() override { StopAt(1); }

 private:
  void CWButton3_ValueChanged();
  void Option2_Click(std::size_t index);

  void Start();
  /// All of a start but capture; False where a press or a change of the tab has overtaken it.
  bool Prepare();
  void BeginProgress();
  void LockFormats();
  void NameFiles();
  /// Gives the page back where a press has overtaken the start.
  void GivePageBack();
  void Stop();
  void StopCapture();
  void FinishFiles();
  void CloseSheet(std::size_t stream);
  void FinishComtrade();
  void Analyse();
  void StopAt(std::size_t stream);
  /// Sets the button without any step of a recording.
  void SetQuietly(bool value);
  void EnableFormats(bool enabled);
  platform::Label& Line(std::size_t line) { return recorder_.Label10[line]; }

  forms::RecorderControls& recorder_;
  config::Settings& settings_;
  StoredSettings& stored_;
  packetroutines::AcquisitionState& state_;
  packetroutines::CaptureSession& capture_;
  RecordingParts parts_;
  RecordingServices services_;
  /// A start, or a stop, is under way.
  bool starting_ = false;
  bool stopping_ = false;
};

}  // namespace subroutines
