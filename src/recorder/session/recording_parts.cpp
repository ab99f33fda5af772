#include "recorder/session/recording_parts.h"

#include <utility>
#include <vector>

#include "base/trap.h"

namespace subroutines {

using platform::Failure;
using platform::RunSteps;
using platform::Verdict;

RecordingParts::RecordingParts(packetroutines::Writing& writing,
                               packetroutines::RecordingEvents& events,
                               packetroutines::SessionFiles& files,
                               const platform::Plug<packetroutines::RecordReader>& reader)
    : writing_(writing),
      events_(events),
      files_(files),
      reader_(reader),
      division_(writing.Context.Services.Timers) {}

void RecordingParts::Begin() {
  running_ = true;
  begun_ = false;
  before_ = 0;
  written_ = 0;
  log_.Begin();
  division_.Begin();
}

void RecordingParts::End() {
  // A recording without a ring has a file of events, which must not be another one's either.
  if (running_ && before_ == 0 && events_.AnyCame()) BeginFiles();
  running_ = false;
}

void RecordingParts::BeginFiles() {
  if (!running_ || std::exchange(begun_, true)) return;
  if (files_.Claim()) events_.Renamed();
}

void RecordingParts::RingDone(std::size_t stream, const std::string& failure) {
  const std::int64_t written = writing_.Report.Written(0);
  Follow(stream, failure.empty() && written > written_);
  written_ = written;
  events_.RingDone(stream, failure);
  const packetroutines::SampleFormat* const format = writing_.Formats.Chosen();
  // A recording that the disk has ended, or a full sheet, ends with the files that it has.
  if (!running_ || !failure.empty() || format == nullptr) return;
  if (!division_.EndsBehind(stream, format->Full(stream))) return;
  const std::string name = files_.NameOfNow();
  // A clock that is set back, as in autumn, brings an hour twice: the next second is another name.
  if (!files_.IsTaken(name)) GoOnIn(name);
}

void RecordingParts::AdapterChanged(platform::Presence presence) {
  BeginFiles();
  events_.AdapterChanged(presence);
}

void RecordingParts::Follow(std::size_t stream, bool stored) {
  if (stream != 0) return;
  if (stored && writing_.Report.FilesGone(0) == 0) {
    log_.Take(writing_.Context.Rings);
  } else {
    log_.Lose();
  }
}

void RecordingParts::GoOnIn(const std::string& name) {
  std::vector<std::string> told;
  const char* left = "";
  const auto tell = [&](const Failure& failure) {
    told.push_back(left + (": " + failure.Text()));
    return Verdict::SkipStep;
  };
  RunSteps(
      writing_.Context.Services.Usual.Program, tell,
      [&] {
        left = "The files before were not ended as usual";
        files_.FinishPart();
      },
      [&] {
        left = "The log of the file before is left out";
        if (HasLog()) WriteLog();
      },
      [&] { events_.EndPart("the recording goes on in \"" + name + "\""); });
  // Its sentences are those of a file.
  writing_.Report.Begin();
  files_.Name(name);
  begun_ = false;
  events_.BeginPart();
  for (const std::string& sentence : told) writing_.Report.AddTrouble(sentence);
  log_.Begin();
  written_ = 0;
  ++before_;
  division_.GoOn();
}

bool RecordingParts::HasLog() const {
  return packetroutines::SequelOf(writing_.Formats.Chosen()) ==
             packetroutines::Sequel::LogAndQuickView &&
         writing_.Context.Present.StreamCount == 1;
}

void RecordingParts::WriteLog() {
  // What the disk has not taken makes a recording that has to be checked by its file.
  if (log_.Known()) reader_->WriteLog(log_.Gaps());
}

}  // namespace subroutines
