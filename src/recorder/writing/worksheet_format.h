#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "recorder/writing/excel_file.h"
#include "recorder/writing/sample_format.h"

namespace packetroutines {

inline constexpr FormatFacts WorksheetFacts{"EXCEL", ".xls", Sequel::Viewer};

/// A worksheet a stream: a row a sample, of the sample counter of the frame and the eight values,
/// below a heading. Its file stays open between the rings, and its failures stay with it: what is
/// not stored is told, and no full disk ends the recording.
///
/// At the last row of a sheet the recording is stopped from within the writing of the ring.
class WorksheetFormat : public SampleFormat {
 public:
  explicit WorksheetFormat(const WritingContext& context);

  void Begin() override { ExcelStarted = {}; }
  bool Write(std::size_t stream) override;
  /// The second worksheet stays open; its own end, the next RUN or that of the program finishes it.
  void End() override { CloseSheet(0); }
  bool Full(std::size_t stream) const override;
  void EndPart() override;
  void EndAtLimit(std::size_t stream) override { CloseSheet(stream); }
  void FinishLeftOpen() override;
  void Finish() override;

  /// The worksheet of the stream was begun in this recording.
  std::array<bool, 2> ExcelStarted{};

 private:
  void BeginSheet(std::size_t stream);
  bool WriteRows(std::size_t stream);
  void WriteRow(std::size_t stream, std::int32_t row, std::int16_t cell);
  void StopAtRowLimit(std::size_t stream);
  void CloseSheet(std::size_t stream);
  /// The result of the closing.
  std::int16_t CloseToDisk(ExcelFile& sheet);
  /// Ends a sheet, and tells where that failed; one that is not open has nothing to end.
  void Close(ExcelFile& sheet, const std::string& name);

  std::array<ExcelFile, 2> excelOut_;
  /// Sheet row of the first sample of the next ring.
  std::array<std::int32_t, 2> excelRow_{};
};

}  // namespace packetroutines
