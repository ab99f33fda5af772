#include "recorder/sample_writer.h"

#include <string>

#include "recorder/raised.h"

namespace packetroutines {

using platform::Crlf;
using platform::Failure;
using platform::Verdict;

SampleWriter::SampleWriter(const RecordContext& context, const RecordWriters& writers,
                           const WriterControls& controls, AcquisitionState& state,
                           CaptureSession& capture, const platform::Services& services)
    : context_(context),
      writers_(writers),
      controls_(controls),
      state_(state),
      capture_(capture),
      services_(services) {}

void SampleWriter::WriteRecordBlock(std::int16_t selector) {
  if (selector == RewindText) {
    writers_.Text.Rewind();
    return;
  }
  const Raised working(atWork_);
  platform::RunSteps(
      services_.Program, [&](const Failure& failure) { return OnFailure(failure); },
      [&] {
        if (selector == 0 || selector == 1) Write(static_cast<std::size_t>(selector));
      },
      // The first ring that is written brings the STOP button to the user.
      [&] { controls_.Recorder.CWButton3.Visible = true; });
}

void SampleWriter::Write(std::size_t stream) {
  if (FindFormat(context_.Settings.FileFormat) == nullptr) return;
  const std::string path = RecordPath(context_, stream);
  if (WriteInFormat(stream)) writers_.Report.RingStored(stream, path);
}

bool SampleWriter::WriteInFormat(std::size_t stream) {
  const std::string& format = context_.Settings.FileFormat;
  if (format == file_format::Text) writers_.Text.Write(stream);
  if (format == file_format::Comtrade) writers_.Comtrade.Write(stream);
  if (format != file_format::Worksheet) return true;
  const bool whole = writers_.Sheet.Write(stream);
  // A worksheet keeps its failures to itself.
  const std::optional<Failure>& trouble = writers_.Sheets.ExcelOut[stream].Trouble();
  if (trouble) writers_.Report.NotStored(*trouble);
  return whole && !trouble;
}

Verdict SampleWriter::OnFailure(const Failure& failure) {
  if (failure.Number() == platform::failure::DiskFull) {
    StopOnFullDisk();
  } else {
    writers_.Report.NotStored(failure);
  }
  return Verdict::LeaveRoutine;
}

void SampleWriter::StopOnFullDisk() {
  capture_.StopCapture();
  state_.LookingForRecording = false;
  controls_.Timers.Timer1.Enabled = false;
  services_.Dialogs.Show({"Attention",
                          std::string("Disk full.") + Crlf +
                              "Please check the disk path, if you can free some disk space." +
                              Crlf + "Recording ist stopped.",
                          platform::Icon::Information});
  controls_.Recorder.CWButton3.Value = false;
  controls_.Recorder.CWButton3.Enabled = true;
  context_.Open.CloseQuietly(TextFile);
}

}  // namespace packetroutines
