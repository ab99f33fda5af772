#pragma once

#include <cstdint>

#include "capture/capture_session.h"
#include "forms/recorder_controls.h"
#include "forms/window_controls.h"
#include "platform/services/services.h"
#include "platform/trap.h"
#include "recorder/comtrade_writer.h"
#include "recorder/disk_report.h"
#include "recorder/record_context.h"
#include "recorder/text_writer.h"
#include "recorder/worksheet_writer.h"

namespace packetroutines {

/// What writes the rings of a recording: a writer a format, and the report of what they did.
struct RecordWriters {
  TextWriter& Text;
  WorksheetWriter& Sheet;
  ComtradeWriter& Comtrade;
  Worksheets& Sheets;
  DiskReport& Report;
};

/// What the end of a recording on a full disk shows and switches on the form.
struct WriterControls {
  forms::RecorderControls& Recorder;
  forms::TimerControls& Timers;
};

/// Moves a full ring to disk, within the packet event that filled it. A full disk ends the
/// recording; whatever else fails costs the ring and is told on the view alone.
class SampleWriter {
 public:
  SampleWriter(const RecordContext& context, const RecordWriters& writers,
               const WriterControls& controls, AcquisitionState& state, CaptureSession& capture,
               const platform::Services& services);

  /// The ring of stream 0 or 1 is full. 7 has the next text recording count its lines from 0.
  void WriteRecordBlock(std::int16_t selector);
  /// A ring is being written; what stops the recording now comes from within.
  bool AtWork() const { return atWork_; }

  static constexpr std::int16_t RewindText = 7;

 private:
  void Write(std::size_t stream);
  bool WriteInFormat(std::size_t stream);
  platform::Verdict OnFailure(const platform::Failure& failure);
  void StopOnFullDisk();

  RecordContext context_;
  RecordWriters writers_;
  WriterControls controls_;
  AcquisitionState& state_;
  CaptureSession& capture_;
  platform::Services services_;
  bool atWork_ = false;
};

}  // namespace packetroutines
