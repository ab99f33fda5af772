#include "recorder/writing/worksheet_format.h"

#include <optional>

#include "base/failure.h"

namespace packetroutines {

using platform::Failure;

namespace {

/// Where the sheet of a stream ends, by the counter of that stream.
constexpr std::array<std::int32_t, 2> LastRows = {32767, 65535};
/// The stream whose counter gives the rows of both sheets.
constexpr std::size_t RowsOf = 0;
constexpr std::int32_t HeadingRow = 1;
constexpr std::int32_t RampColumn = 1;
/// Inches.
constexpr double Margin = 1.5;

}  // namespace

WorksheetFormat::WorksheetFormat(const WritingContext& context)
    : SampleFormat(WorksheetFacts, context),
      excelOut_{{{context.Open, context.Services.Numbers, context.Services.Code},
                 {context.Open, context.Services.Numbers, context.Services.Code}}} {}

bool WorksheetFormat::Write(std::size_t stream) {
  const bool whole = WriteRows(stream);
  const std::optional<Failure>& refusal = excelOut_[stream].Refusal();
  if (refusal) context_.Report.NotStored(stream, *refusal);
  return whole && !refusal;
}

bool WorksheetFormat::WriteRows(std::size_t stream) {
  bool whole = true;
  ExcelFile& sheet = excelOut_[stream];
  if (!ExcelStarted[stream]) BeginSheet(stream);
  sheet.Gather();
  for (std::int16_t i = 0; i < RecordRings::Cells; ++i) {
    if (excelRow_[stream] + i > LastRows[stream]) {
      StopAtRowLimit(stream);
      whole = false;
      break;
    }
    WriteRow(stream, excelRow_[RowsOf] + i, i);
  }
  sheet.WriteGathered();
  excelRow_[stream] += RecordRings::Cells;
  return whole;
}

void WorksheetFormat::BeginSheet(std::size_t stream) {
  ExcelFile& sheet = excelOut_[stream];
  ExcelStarted[stream] = true;
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

void WorksheetFormat::WriteRow(std::size_t stream, std::int32_t row, std::int16_t cell) {
  const RecordRings& rings = context_.Rings;
  const auto write = [&](std::int32_t column, double value) {
    excelOut_[stream].WriteValue(value_type::Number, cell_font::First, alignment::Left,
                                 hidden_locked::Neither, row, column, value);
  };
  write(RampColumn, stream == 0 ? rings.RecordCount(cell) : rings.RecordCount2(cell));
  std::int32_t column = RampColumn;
  for (const auto& channel : stream == 0 ? rings.RecordChannel : rings.RecordChannel2) {
    write(++column, channel(cell));
  }
}

void WorksheetFormat::StopAtRowLimit(std::size_t stream) {
  if (stream == 0) {
    context_.End->StopAtRowLimit();
  } else {
    context_.End->StopAtRowLimit2();
  }
}

bool WorksheetFormat::Full(std::size_t stream) const {
  return ExcelStarted[stream] && excelRow_[stream] + RecordRings::Cells - 1 > LastRows[stream];
}

void WorksheetFormat::EndPart() {
  for (const std::size_t stream : {0U, 1U}) CloseSheet(stream);
  ExcelStarted = {};
  // A second sheet that is begun before the first one stands on the rows of an empty sheet.
  excelRow_.fill(HeadingRow + 1);
}

void WorksheetFormat::CloseSheet(std::size_t stream) {
  Close(excelOut_[stream], "The worksheet of stream " + std::to_string(stream + 1));
}

void WorksheetFormat::FinishLeftOpen() {
  for (ExcelFile& sheet : excelOut_) Close(sheet, "A worksheet of the recording before");
}

void WorksheetFormat::Finish() {
  for (ExcelFile& sheet : excelOut_) CloseToDisk(sheet);
}

std::int16_t WorksheetFormat::CloseToDisk(ExcelFile& sheet) {
  const std::int16_t result = sheet.CloseFile();
  if (result == 0) context_.Report.AlsoWritten(sheet.FileName());
  return result;
}

void WorksheetFormat::Close(ExcelFile& sheet, const std::string& name) {
  const std::int16_t result = CloseToDisk(sheet);
  if (result == 0 || result == platform::failure::BadFileNumber) return;
  context_.Report.AddTrouble(name + " could not be finished: " + Failure(result).Text());
}

}  // namespace packetroutines
