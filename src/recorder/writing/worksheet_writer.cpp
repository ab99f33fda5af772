#include "recorder/writing/worksheet_writer.h"

namespace packetroutines {

namespace {

/// Where the sheet of a stream ends, by the counter of that stream, and who is told.
struct SheetEnd {
  std::int32_t LastRow;
  void (RecordingEnd::*Stop)();
};
constexpr std::array<SheetEnd, 2> SheetEnds = {
    {{32767, &RecordingEnd::StopAtRowLimit}, {65535, &RecordingEnd::StopAtRowLimit2}}};
/// The stream whose counter gives the rows of both sheets.
constexpr std::size_t RowsOf = 0;
constexpr std::int32_t HeadingRow = 1;
constexpr std::int32_t RampColumn = 1;
/// Inches.
constexpr double Margin = 1.5;

}  // namespace

bool WorksheetWriter::Write(std::size_t stream) {
  const SheetEnd& end = SheetEnds[stream];
  bool whole = true;
  ExcelFile& sheet = sheets_.ExcelOut[stream];
  if (!sheets_.ExcelStarted[stream]) Begin(stream);
  sheet.Gather();
  for (std::int16_t i = 0; i < RecordRings::Cells; ++i) {
    if (excelRow_[stream] + i > end.LastRow) {
      (end_.*end.Stop)();
      whole = false;
      break;
    }
    WriteRow(stream, excelRow_[RowsOf] + i, i);
  }
  sheet.WriteGathered();
  excelRow_[stream] += RecordRings::Cells;
  return whole;
}

void WorksheetWriter::Begin(std::size_t stream) {
  ExcelFile& sheet = sheets_.ExcelOut[stream];
  sheets_.ExcelStarted[stream] = true;
  sheet.CreateFile(RecordPath(context_, stream));
  sheet.Gather();
  sheet.PrintGridLines(false);
  for (const std::int16_t side : {margin::Top, margin::Left, margin::Right, margin::Bottom}) {
    sheet.SetMargin(side, Margin);
  }
  sheet.SetFont("Arial", 10, font_format::Plain);
  sheet.SetFont("Arial", 10, font_format::Bold);
  sheet.SetFont("Arial", 10, font_format::Bold | font_format::Underline);
  sheet.SetFont("Courier", 12, font_format::Italic);
  sheet.SetColumnWidth(1, 5, 18);
  const auto heading = [&](std::int32_t column, const std::string& text) {
    sheet.WriteValue(value_type::Text, cell_font::Second, alignment::Left, hidden_locked::Neither,
                     HeadingRow, column, text);
  };
  heading(RampColumn, "Ramp");
  std::int32_t column = RampColumn;
  for (const std::string& name : context_.Settings.ChannelName) heading(++column, name);
  excelRow_[stream] = HeadingRow + 1;
}

void WorksheetWriter::WriteRow(std::size_t stream, std::int32_t row, std::int16_t cell) {
  const RecordRings& rings = context_.Rings;
  const auto write = [&](std::int32_t column, double value) {
    sheets_.ExcelOut[stream].WriteValue(value_type::Number, cell_font::First, alignment::Left,
                                        hidden_locked::Neither, row, column, value);
  };
  write(RampColumn, stream == 0 ? rings.RecordCount(cell) : rings.RecordCount2(cell));
  std::int32_t column = RampColumn;
  for (const auto& channel : stream == 0 ? rings.RecordChannel : rings.RecordChannel2) {
    write(++column, channel(cell));
  }
}

}  // namespace packetroutines
