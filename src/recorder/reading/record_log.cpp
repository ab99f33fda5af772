#include "recorder/reading/record_log.h"

#include <memory>
#include <string_view>

#include "base/local_time.h"
#include "platform/stream_format.h"
#include "recorder/reading/analysis_progress.h"
#include "recorder/reading/frame_identity.h"
#include "recorder/reading/line_count.h"
#include "recorder/reading/line_reader.h"
#include "recorder/reading/log_text.h"
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
constexpr char FieldSign = ';';

/// The number of the second field in its general form: anything that a text may begin with.
std::int32_t OddRamp(std::string_view line) {
  // Where there is no first sign, the search for the second one finds none either.
  const std::size_t first = line.find(FieldSign);
  const std::size_t second = line.find(FieldSign, first + 1);
  if (second == std::string_view::npos) throw Failure(failure::InvalidProcedureCall);
  const double number = platform::NumberText::Leading(line.substr(first + 1, second - first - 1));
  return platform::Round<std::int32_t>(number);
}

/// The number of the second field. Nearly all of them are a few digits and nothing else.
std::int32_t RampOf(std::string_view line) {
  constexpr std::ptrdiff_t PlainDigits = 9;
  const char* at = line.data();
  const char* const end = at + line.size();
  while (at != end && *at != FieldSign) ++at;
  if (at == end) return OddRamp(line);
  const char* const field = ++at;
  std::int32_t ramp = 0;
  for (; at != end && *at >= '0' && *at <= '9' && at - field < PlainDigits; ++at) {
    ramp = ramp * 10 + (*at - '0');
  }
  const bool plain = at != end && *at == FieldSign;
  return plain ? ramp : OddRamp(line);
}

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

void RecordLog::WriteLog(const GapSearch& gaps, const LongestRun& run) {
  const FrameIdentity frame = ReadFrameIdentity(frame_);
  const platform::LocalTime start = StartTimeOf(context_.State.RecordFileName, TextFacts.Extension);
  const platform::LocalTime stop = context_.Services.Calendar.Now();
  const platform::NumberText& numbers = context_.Services.Numbers;
  const config::Settings& settings = context_.Settings;
  const std::unique_ptr<platform::OutputFile> log =
      context_.Services.Files.Create(context_.LogPath());
  const auto write = [&](const std::string& line) {
    log->Write(LogText(context_.Services.Code, line) + Crlf);
  };
  const auto date = [&](const platform::LocalTime& moment) {
    return LogDate(context_.Services.Code, context_.Services.Calendar, moment);
  };

  write("Error log for file               : " + context_.Path());
  write("Measurement started              : " + date(start));
  write("Measurement stopped              : " + date(stop));
  write("Duration time of data aquisition : " +
        platform::TimeOfDayText(platform::SecondsBetween(start, stop)) + " hh:mm:ss;");
  write("");
  write("MAC adress sender                : " + frame.Sender);
  write("MAC adress receiver              : " + frame.Receiver);
  // The ID is in the code page already, as the frame held it.
  log->Write("Station ID                       : " + frame.Id + Crlf);
  write("Filter were set to               : " + settings.FilterString + " / " +
        settings.FilterContent[0] + " / " + settings.FilterContent[1]);
  write("");
  write("Count of received samples        : " + numbers.General(gaps.Lines()));
  write("Count of lost samples            : " + numbers.General(gaps.Lost()));
  const double sent = static_cast<double>(gaps.Lost()) + gaps.Lines();
  write("Percentage of captured samples   : " + numbers.Format(gaps.Lines() / sent * 100, "0.0") +
        " %");
  const double waves = static_cast<double>(run.Longest) / platform::SamplesAPeriod;
  const double frequency = settings.BaseFrequency;
  if (frequency == 0) throw Failure(failure::DivisionByZero);
  write("Longest continous data           : " + numbers.General(run.Longest) +
        " samples; start: " + numbers.General(run.First) + ", end: " + numbers.General(run.Last) +
        "; (acc. ~" + numbers.General(waves / frequency) + "s)");
  write("Count of received full waves     : " +
        numbers.General(run.Longest / platform::SamplesAPeriod));
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
