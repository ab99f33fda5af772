#include "recorder/writing/sample_writer.h"

#include <optional>
#include <string>

#include "base/trap.h"

namespace packetroutines {

using platform::Failure;

void SampleWriter::WriteRecordBlock(std::int16_t selector) {
  if (selector == RewindText) {
    for (SampleFormat* format : formats_) format->Rewind();
    return;
  }
  const auto stream = static_cast<std::size_t>(selector);
  std::optional<Failure> met;
  const auto note = [&](const Failure& failure) {
    met = failure;
    return platform::Verdict::LeaveRoutine;
  };
  platform::RunSteps(context_.Services.Usual.Program, note, [&] {
    if (stream <= 1) Write(stream);
    // The first ring that is written brings the STOP button to the user.
    recorder_.CWButton3.Visible = true;
  });
  // Behind the trap, since the end of a recording is no part of the writing of its ring.
  if (met && met->Number() != platform::failure::DiskFull) {
    context_.Report.NotStored(stream, *met);
  }
  const bool full = met && met->Number() == platform::failure::DiskFull;
  if (stream <= 1 && Witness) Witness->RingDone(stream, full ? met->Text() : std::string());
  if (full) context_.End->StopOnFullDisk();
}

void SampleWriter::Write(std::size_t stream) {
  SampleFormat* const format = formats_.Chosen();
  if (format == nullptr) return;
  if (Witness) Witness->RingBegins();
  const std::string path = RecordPath(context_, stream);
  context_.Report.LookForFile(stream);
  if (format->Write(stream)) context_.Report.RingWritten(stream, path);
}

}  // namespace packetroutines
