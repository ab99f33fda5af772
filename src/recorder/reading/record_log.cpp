#include "recorder/reading/record_log.h"

#include <memory>

#include "recorder/reading/analysis_progress.h"
#include "recorder/reading/frame_identity.h"
#include "recorder/reading/line_count.h"
#include "recorder/reading/line_reader.h"
#include "recorder/reading/log_lines.h"
#include "recorder/reading/ramp_field.h"
#include "recorder/writing/text_format.h"

namespace packetroutines {

namespace failure = platform::failure;
using platform::Crlf;
using platform::Failure;
using platform::Flow;
using platform::RunSteps;
using platform::Verdict;

namespace {

/// The ends of the two passes on the progress bar, whose rest belongs to the quick view.
constexpr std::int16_t CountedPercent = 5;
constexpr std::int16_t AnalysedPercent = 25;

}  // namespace

void RecordLog::BuildRecordLog(bool& nothingToRead) {
  const ShownProgress shown(bar_);
  std::int32_t lines = 0;
  platform::Program& program = context_.Services.Usual.Program;
  const Flow counted = RunSteps(
      program, [this](const Failure& failure) { return OnCountFailure(failure); },
      [&] { lines = CountLines(); });
  if (counted == Flow::Next && lines < 1) {
    nothingToRead = true;
    return;
  }
  if (counted == Flow::Next) {
    RunSteps(
        program, [this](const Failure& failure) { return OnFailure(failure); },
        [&] { Analyse(lines); });
  }
  // A block that failed may have left its file open, which would keep the next recording from disk.
  context_.Open.CloseQuietly(TextFile);
  context_.Services.Pointer.ShowNormal();
}

std::int32_t RecordLog::CountLines() {
  AnalysisPass pass(bar_, 0, CountedPercent, context_.Services.Files.FileSize(context_.Path()));
  return CountFileLines(context_.Services.Files, context_.Path(), pass);
}

void RecordLog::Analyse(std::int32_t lines) {
  context_.Services.Pointer.ShowHourglass();
  context_.Open.CloseAll();
  GapSearch gaps;
  {
    const std::unique_ptr<platform::InputFile> file = context_.Services.Files.Read(context_.Path());
    AnalysisPass pass(bar_, CountedPercent, AnalysedPercent,
                      context_.Services.Files.FileSize(context_.Path()));
    LineReader reader(*file, pass);
    for (std::int32_t i = 0; i < lines; ++i) gaps.Line(RampOf(reader.Next()));
  }
  WriteLog(gaps, gaps.Finish());
}

void RecordLog::WriteLog(const GapSearch& followed) {
  GapSearch gaps = followed;
  const LongestRun run = gaps.Finish();
  try {
    WriteLog(gaps, run);
  } catch (const Failure&) {
    // With it the recording would count as one that was checked.
    context_.Open.DeleteQuietly(context_.LogPath());
    throw;
  }
}

void RecordLog::WriteLog(const GapSearch& gaps, const LongestRun& run) {
  const config::Settings& settings = context_.Settings;
  const LogHeading heading{.Path = context_.Path(),
                           .Frame = ReadFrameIdentity(frame_),
                           .Start = StartTimeOf(context_.State.RecordFileName, TextFacts.Extension),
                           .Stop = context_.Services.Calendar.Now(),
                           .Filters = settings.FilterString + " / " + settings.FilterContent[0] +
                                      " / " + settings.FilterContent[1]};
  const std::unique_ptr<platform::OutputFile> log =
      context_.Services.Files.Create(context_.LogPath());
  LogLines lines(*log, context_.Texts());
  lines.Heading(heading);
  lines.Counts(gaps, run, settings.BaseFrequency);
  log->Close();
  if (context_.Services.Sync != nullptr) context_.Services.Sync->Sync(context_.LogPath());
}

Verdict RecordLog::OnCountFailure(const Failure& failure) {
  context_.Services.Usual.Dialogs.Show(
      {"exceeding limits",
       std::string("Internal program error.") + Crlf + failure.Text() + Crlf +
           "This happens while reading counting written lines." + Crlf + Crlf +
           "All data are save, but a creating a protocol is not possible." + Crlf,
       platform::Icon::Critical});
  return Verdict::LeaveRoutine;
}

Verdict RecordLog::OnFailure(const Failure& failure) {
  if (failure.Number() == failure::SubscriptOutOfRange) {
    context_.Services.Usual.Dialogs.Show(
        {"Attention",
         std::string("To much errors in the captured sequence to build a log file.") + Crlf +
             "Solutions:" + Crlf + "- try a shorter period of time" + Crlf +
             "- check performance of this computer while data aquisition" + Crlf + Crlf +
             "In any case the data itself is recorded.",
         platform::Icon::Exclamation});
  }
  return Verdict::LeaveRoutine;
}

}  // namespace packetroutines
