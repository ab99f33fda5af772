#include "recorder/session/session_files.h"

#include "base/failure.h"
#include "base/trap.h"
#include "recorder/writing/record_files.h"

namespace packetroutines {

using platform::Crlf;
using platform::Failure;
using platform::Verdict;
namespace failure = platform::failure;

namespace {

/// Why the configuration of a recording could not be ended.
std::string ReasonOf(const Failure& met) {
  const bool noDate =
      met.Number() == failure::TypeMismatch || met.Number() == failure::InvalidProcedureCall;
  return noDate ? "Its name holds no date and time of a start." : met.Text() + ".";
}

}  // namespace

void SessionFiles::Begin() {
  writers_.Report.Begin();
  context_.Open.CloseQuietly(TextFile);
  for (ExcelFile& sheet : writers_.Sheets.ExcelOut) {
    TellOfOpenEnd(sheet.CloseFile(), "A worksheet of the recording before");
  }
}

void SessionFiles::Finish() {
  // A ring that failed may have left its file open.
  context_.Open.CloseQuietly(TextFile);
  for (const std::size_t stream : {0U, 1U}) writers_.Report.LookForFile(stream);
  // The second worksheet stays open; its own end, the next RUN or that of the program finishes it.
  if (HasFormat(file_format::Worksheet)) CloseSheet(0);
  if (HasFormat(file_format::Comtrade)) FinishComtrade();
}

void SessionFiles::CloseSheet(std::size_t stream) {
  TellOfOpenEnd(writers_.Sheets.ExcelOut[stream].CloseFile(),
                "The worksheet of stream " + std::to_string(stream + 1));
}

void SessionFiles::TellOfOpenEnd(std::int16_t result, const std::string& sheet) {
  // Without an open file there is nothing to end.
  if (result == 0 || result == failure::BadFileNumber) return;
  writers_.Report.Add(sheet + " could not be finished: " + Failure(result).Text());
}

void SessionFiles::FinishComtrade() {
  const auto tell = [&](const Failure& met) {
    context_.Open.CloseQuietly(TextFile);
    services_.Dialogs.Show({"Information",
                            "The file " + writers_.Comtrade.ConfigPath() + " is incomplete." +
                                Crlf + ReasonOf(met) + Crlf + WhatOfTheSamples(),
                            platform::Icon::Information});
    return Verdict::LeaveRoutine;
  };
  platform::RunSteps(services_.Program, tell, [&] { writers_.Comtrade.FinishComtradeConfig(); });
}

std::string SessionFiles::WhatOfTheSamples() const {
  const DiskReport& report = writers_.Report;
  if (report.Gone(0) || report.Gone(1)) return "The data file is gone, too.";
  if (!report.AnyStored(0) && !report.AnyStored(1)) return "No samples were stored.";
  return "The samples in the data file are not affected.";
}

bool SessionFiles::FindToRead() {
  if (!HasFormat(file_format::Text) && !HasFormat(file_format::Worksheet)) return true;
  // It is read under the name of one stream, whatever prefix the samples' files bear.
  const std::string path =
      RecordPath(context_.Files, context_.Settings, context_.State.RecordFileName);
  if (context_.Files.FileExists(path)) return true;
  const bool ofOneStream = path == RecordPath(context_, 0);
  if (ofOneStream && writers_.Report.Gone(0)) {
    writers_.Report.Add(HasFormat(file_format::Text) ? "Log and quick view are left out"
                                                     : "The worksheet is not opened for viewing");
    return false;
  }
  if (HasFormat(file_format::Worksheet)) {
    if (ofOneStream) writers_.Report.Add("No ring was stored, so there is no worksheet");
    return true;
  }
  context_.Open.OpenToAppend(TextFile, path);
  context_.Open.Close(TextFile);
  return true;
}

}  // namespace packetroutines
