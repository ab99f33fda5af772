#pragma once

#include <cstdint>

#include "base/failure.h"
#include "base/program.h"
#include "forms/recorder_controls.h"
#include "recorder/writing/comtrade_writer.h"
#include "recorder/writing/disk_report.h"
#include "recorder/writing/record_context.h"
#include "recorder/writing/recording_end.h"
#include "recorder/writing/text_writer.h"
#include "recorder/writing/worksheet_writer.h"

namespace packetroutines {

/// What writes the rings of a recording: a writer a format, and the report of what they did.
struct RecordWriters {
  TextWriter& Text;
  WorksheetWriter& Sheet;
  ComtradeWriter& Comtrade;
  Worksheets& Sheets;
  DiskReport& Report;
};

/// Moves a full ring to disk, within the packet event that filled it. A full disk ends the
/// recording; whatever else fails costs the ring and is told on the view alone.
class SampleWriter {
 public:
  /// `end` is asked to end the recording where its disk is full.
  SampleWriter(const RecordContext& context, const RecordWriters& writers,
               forms::RecorderControls& recorder, RecordingEnd& end, platform::Program& program)
      : context_(context), writers_(writers), recorder_(recorder), end_(end), program_(program) {}

  /// The ring of stream 0 or 1 is full. 7 has the next text recording count its lines from 0.
  void WriteRecordBlock(std::int16_t selector);

  static constexpr std::int16_t RewindText = 7;

 private:
  void Write(std::size_t stream);
  bool WriteInFormat(std::size_t stream);
  void OnFailure(std::size_t stream, const platform::Failure& failure);

  RecordContext context_;
  RecordWriters writers_;
  forms::RecorderControls& recorder_;
  RecordingEnd& end_;
  platform::Program& program_;
};

}  // namespace packetroutines
