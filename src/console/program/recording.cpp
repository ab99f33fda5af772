#include "console/program/recording.h"

#include <algorithm>

#include "recorder/writing/record_names.h"

namespace console {

using namespace std::chrono_literals;
using subroutines::EndReason;
namespace line = forms::record_line;

namespace {

/// A station that has sent nothing for so long is told of, and its frames may have another length
/// when it comes.
constexpr std::chrono::nanoseconds LongestSilence = 2s;
/// From one look at the progress to the next, where it is written over, and where it is not.
constexpr std::chrono::nanoseconds ShownAgain = 500ms;
constexpr std::chrono::nanoseconds ToldAgain = 1min;

std::string ClockOf(std::chrono::nanoseconds time) {
  const auto two = [](auto count) {
    const std::string digits = std::to_string(count);
    return digits.size() < 2 ? "0" + digits : digits;
  };
  const std::chrono::hh_mm_ss parts(std::chrono::floor<std::chrono::seconds>(time));
  return std::to_string(parts.hours().count()) + ":" + two(parts.minutes().count()) + ":" +
         two(parts.seconds().count());
}

}  // namespace

Recording::Recording(Instrument& instrument, NoteLines& notes, std::ostream& results)
    : instrument_(instrument), notes_(notes), results_(results) {
  subroutines::RecordingSession& session = Program().Recorder.Session;
  session.Listener = static_cast<subroutines::EndListener&>(*this);
  session.Reader = static_cast<packetroutines::RecordReader&>(*this);
  forms::Main& main = Program().Windows.Main;
  const platform::Clock& time = instrument_.Time();
  TellWhatIsSaid(main.NotStored, notes_, time, [] { return true; });
  TellWhatIsSaid(main.QuietLine[forms::quiet_line::Recorder], notes_, time,
                 [&session] { return !session.Running(); });
  main.Label10[line::SecondPath].Caption.Observe([this] { NameChanged(); });
}

void Recording::Begin(std::chrono::nanoseconds every) {
  begun_ = awaitedSince_ = shown_ = instrument_.Time().Now();
  for (std::size_t stream = 0; stream < framesBefore_.size(); ++stream) {
    framesBefore_[stream] = Program().Acquisition.State.Counters.Streams[stream].HeldId;
  }
  instrument_.Do([&] {
    Program().Recorder.Session.DivideEvery(every);
    Program().Windows.Main.CWButton3.Value = true;
    // A recorder waits for its station as long as it takes.
    Program().Acquisition.Run.CallOffWatchdog();
  });
}

void Recording::Look() {
  LookForLosses();
  if (!AnyCame()) AwaitFrames();
  ShowProgress();
}

void Recording::LookForLosses() {
  const packetroutines::DiskReport& report = Program().Recorder.Writing.Report;
  lost_ = lost_ || report.AnyLost() || report.AnyTrouble();
  refused_ = refused_ || report.Refused(0) || report.Refused(1);
}

void Recording::AwaitFrames() {
  const std::chrono::nanoseconds now = instrument_.Time().Now();
  if (now - awaitedSince_ < LongestSilence) return;
  awaitedSince_ = now;
  instrument_.Do([this] { Program().Recorder.Session.AwaitAnew(); });
}

void Recording::ShowProgress() {
  const std::chrono::nanoseconds now = instrument_.Time().Now();
  if (now - shown_ < (notes_.WritesOver() ? ShownAgain : ToldAgain)) return;
  shown_ = now;
  notes_.ShowProgress(ProgressText());
}

std::string Recording::ProgressText() {
  const forms::Main& main = Program().Windows.Main;
  std::string text = ClockOf(Lasts());
  const std::int64_t files = Program().Recorder.Session.FilesBefore();
  if (files > 0) text += ", file " + std::to_string(files + 1);
  const auto add = [&](const std::string& words) {
    if (!words.empty()) text += ", " + words;
  };
  for (const platform::Label& stream : main.OnDisk) add(stream.Caption);
  add(main.Room.Caption);
  return text;
}

void Recording::NameChanged() {
  const std::string& name = Program().Acquisition.State.RecordFileName;
  if (name == name_) return;
  TellFiles(name_);
  name_ = name;
}

void Recording::TellFiles(const std::string& name) {
  // A name that was never written under may be another program's.
  if (name.empty() || !Program().Recorder.Session.AnyBegun()) return;
  const packetroutines::WritingContext& context = Program().Recorder.Writing.Context;
  for (const char* prefix : {"", packetroutines::FirstPrefix, packetroutines::SecondPrefix}) {
    const std::string path =
        packetroutines::RecordPath(context.Services.Files, context.Settings, prefix + name);
    // Beside two streams of text there is an empty file without a prefix.
    if (context.Services.Files.FileSize(path) == 0) continue;
    anyFile_ = true;
    results_ << path << std::endl;
  }
}

void Recording::BuildRecordLog(bool& nothingToRead) {
  Program().Recorder.Reading.BuildRecordLog(nothingToRead);
}

void Recording::WriteLog(const packetroutines::GapSearch& followed) {
  Program().Recorder.Reading.WriteLog(followed);
}

std::uint64_t Recording::FramesOf(std::size_t stream) {
  return Program().Acquisition.State.Counters.Streams[stream].HeldId - framesBefore_[stream];
}

bool Recording::AnyStored() {
  const packetroutines::DiskReport& report = Program().Recorder.Writing.Report;
  return report.AnyStored(0) || report.AnyStored(1);
}

void Recording::End() {
  if (!Over()) {
    instrument_.Do([this] {
      if (AnyStored()) {
        Program().Windows.Main.CWButton3.Value = false;
      } else {
        Program().Recorder.Session.InterruptForGood(EndReason::Stop);
      }
    });
  }
  LookForLosses();
  if (notes_.WritesOver()) notes_.ShowProgress(ProgressText());
  notes_.Close();
  TellFiles(name_);
}

ExitCode Recording::Outcome() {
  if (ended_ == EndReason::Refused) return ExitCode::WrongUse;
  if (instrument_.Failed() || ended_ == EndReason::DiskFull) return ExitCode::FileTrouble;
  if (lost_) return refused_ ? ExitCode::NotPermitted : ExitCode::FileTrouble;
  return OutcomeOfFrames();
}

ExitCode Recording::OutcomeOfFrames() {
  const auto streams = static_cast<std::size_t>(Program().Config.Present.StreamCount);
  ExitCode code = ExitCode::Done;
  for (std::size_t stream = 0; stream < streams; ++stream) {
    if (FramesOf(stream) > 0) continue;
    notes_.Tell("No frame of '" + Program().Config.Settings.FilterContent[stream] + "' has come.");
    code = ExitCode::NothingReceived;
  }
  if (code == ExitCode::Done && !anyFile_) {
    notes_.Tell("Nothing was stored: fewer than 4000 samples of a stream have come.");
    code = ExitCode::NothingReceived;
  }
  return code;
}

}  // namespace console
