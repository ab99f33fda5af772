#include "recorder/writing/sample_writer.h"

#include <optional>
#include <string>

#include "base/trap.h"

namespace packetroutines {

using platform::Failure;
using platform::Verdict;

void SampleWriter::WriteRecordBlock(std::int16_t selector) {
  if (selector == RewindText) {
    writers_.Text.Rewind();
    return;
  }
  const auto stream = static_cast<std::size_t>(selector);
  std::optional<Failure> met;
  const auto note = [&](const Failure& failure) {
    met = failure;
    return Verdict::LeaveRoutine;
  };
  platform::RunSteps(
      program_, note,
      [&] {
        if (stream <= 1) Write(stream);
      },
      // The first ring that is written brings the STOP button to the user.
      [&] { recorder_.CWButton3.Visible = true; });
  // Behind the trap, since the end of a recording is no part of the writing of its ring.
  if (met) OnFailure(stream, *met);
}

void SampleWriter::Write(std::size_t stream) {
  if (FindFormat(context_.Settings.FileFormat) == nullptr) return;
  const std::string path = RecordPath(context_, stream);
  writers_.Report.LookForFile(stream);
  if (WriteInFormat(stream)) writers_.Report.RingWritten(stream, path);
}

bool SampleWriter::WriteInFormat(std::size_t stream) {
  const std::string& format = context_.Settings.FileFormat;
  if (format == file_format::Text) writers_.Text.Write(stream);
  if (format == file_format::Comtrade) writers_.Comtrade.Write(stream);
  if (format != file_format::Worksheet) return true;
  const bool whole = writers_.Sheet.Write(stream);
  // A worksheet keeps its failures to itself.
  const std::optional<Failure>& trouble = writers_.Sheets.ExcelOut[stream].Trouble();
  if (trouble) writers_.Report.NotStored(stream, *trouble);
  return whole && !trouble;
}

void SampleWriter::OnFailure(std::size_t stream, const Failure& failure) {
  if (failure.Number() == platform::failure::DiskFull) {
    end_.StopOnFullDisk();
  } else {
    writers_.Report.NotStored(stream, failure);
  }
}

}  // namespace packetroutines
