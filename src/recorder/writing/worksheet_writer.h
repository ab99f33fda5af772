#pragma once

#include <array>
#include <cstdint>

#include "recorder/writing/excel_file.h"
#include "recorder/writing/record_context.h"
#include "recorder/writing/recording_end.h"

namespace packetroutines {

/// The worksheets of the two streams. They live as long as the program, which finishes what is
/// still open at its end.
struct Worksheets {
  Worksheets(FileNumbers& files, const platform::NumberText& numbers,
             const platform::CodePage& code)
      : ExcelOut{{{files, numbers, code}, {files, numbers, code}}} {}

  /// The program ends: finishes what is still open.
  void Finish() {
    for (ExcelFile& sheet : ExcelOut) sheet.CloseFile();
  }

  std::array<ExcelFile, 2> ExcelOut;
  /// The worksheet of the stream was begun in this recording.
  std::array<bool, 2> ExcelStarted{};
};

/// Writes a full ring to the worksheet of its stream: a row a sample, of the sample counter of the
/// frame and the eight values, below a heading. The file stays open between the rings.
class WorksheetWriter {
 public:
  WorksheetWriter(const RecordContext& context, Worksheets& sheets, RecordingEnd& end)
      : context_(context), sheets_(sheets), end_(end) {}

  /// Writes the ring of a stream, 0 or 1. At the last row of the sheet it stops the recording; the
  /// result is False then.
  bool Write(std::size_t stream);

 private:
  void Begin(std::size_t stream);
  void WriteRow(std::size_t stream, std::int32_t row, std::int16_t cell);

  RecordContext context_;
  Worksheets& sheets_;
  RecordingEnd& end_;
  /// Sheet row of the first sample of the next ring.
  std::array<std::int32_t, 2> excelRow_{};
};

}  // namespace packetroutines
