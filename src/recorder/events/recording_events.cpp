#include "recorder/events/recording_events.h"

#include <algorithm>

#include "config/program_facts.h"
#include "recorder/events/identity_words.h"
#include "recorder/writing/record_names.h"

namespace packetroutines {

namespace {

/// No stream that comes rests for so long.
constexpr StreamWatch::Time LongestRest{1'000'000};

std::string Figure(const char* name, std::int64_t count) {
  return std::string(name) + " " + std::to_string(count);
}

std::string Figure(const char* name, std::uint64_t count) {
  return Figure(name, static_cast<std::int64_t>(count));
}

}  // namespace

RecordingEvents::RecordingEvents(const EventSources& sources)
    : from_(sources),
      context_(sources.Samples.Context),
      file_(context_.Services.Files, context_.Services.Calendar) {}

std::string RecordingEvents::Path() const {
  return RecordPath(context_.Services.Files, context_.Settings,
                    EventsName(from_.State.RecordFileName));
}

void RecordingEvents::Begin() {
  file_.Begin(Path());
  running_ = true;
  goesOnFrom_ = StreamWatch::Time{0};
  tooLong_ = from_.State.Counters.TooLong;
  dropped_ = from_.Capture.Dropped();
  from_.Watch.TakeClockStep();
  BeginFiles();
}

void RecordingEvents::EndPart(const std::string& why) {
  if (!running_) return;
  TellSystem();
  for (std::size_t stream = 0; stream < streams_.size(); ++stream) {
    from_.Samples.Report.LookForFile(stream);
    LookForFile(stream);
    TellTotals(stream);
  }
  Add("end", why);
  Write();
}

void RecordingEvents::BeginPart() {
  if (!running_) return;
  file_.GoOn(Path());
  goesOnFrom_ = from_.Watch.WallTime();
  BeginFiles();
}

void RecordingEvents::BeginFiles() {
  streams_ = {};
  for (std::size_t stream = 0; stream < streams_.size(); ++stream) {
    streams_[stream].AtBegin = from_.Watch.Track(stream).Totals();
    streams_[stream].HeldId = from_.State.Counters.Streams[stream].HeldId;
  }
  Add("start", Settings());
}

std::string RecordingEvents::Settings() const {
  const config::Settings& settings = context_.Settings;
  std::string text = std::string(config::ProgramName) + " " + config::ProgramVersion;
  const auto add = [&](const std::string& fact) { text += ", " + fact; };
  add("format " + settings.FileFormat);
  add("adapter \"" + from_.Setup.Combo1.Text() + "\"");
  add("capture filter \"" + settings.FilterString + "\"");
  add("stream 1 \"" + settings.FilterContent[0] + "\"");
  if (context_.Present.StreamCount == 2) add("stream 2 \"" + settings.FilterContent[1] + "\"");
  const auto& units = from_.Setup.Combo4;
  add("stream 1 in " + units[forms::unit_list::Current].Text() + " and " +
      units[forms::unit_list::Voltage].Text());
  if (context_.Present.StreamCount == 2) add("stream 2 in A and kV");
  add("frequency " + context_.Services.Numbers.General(settings.BaseFrequency) + " Hz");
  return text;
}

void RecordingEvents::Renamed() {
  file_.Rename(Path());
}

bool RecordingEvents::AnyCame() const {
  for (std::size_t stream = 0; stream < streams_.size(); ++stream) {
    if (from_.State.Counters.Streams[stream].HeldId != streams_[stream].HeldId) return true;
  }
  return false;
}

void RecordingEvents::RingDone(std::size_t stream, const std::string& failure) {
  if (!running_) return;
  TellRing(stream, failure);
  for (std::size_t each = 0; each < streams_.size(); ++each) TellStream(each);
  const Stream& told = streams_[stream];
  TellStretch(stream, told.Failing ? told.InFile : told.InFile - 1);
  TellSystem();
  // The other stream has no ring to be told of where it does not come. What frames still wait is
  // not known, so that the time of the frame at hand counts.
  for (std::size_t each = 0; each < streams_.size(); ++each) {
    TellSilence(each, from_.Watch.LastArrived(stream));
  }
  Write();
}

void RecordingEvents::Write() {
  if (file_.Write()) from_.Samples.Report.AlsoWritten(file_.Path());
}

void RecordingEvents::TellStream(std::size_t stream) {
  Stream& told = streams_[stream];
  if (told.Met || from_.State.Counters.Streams[stream].HeldId == told.HeldId) return;
  told.Met = true;
  RecordEvent event = Of(stream, "stream met");
  event.At = std::max(from_.Watch.FirstArrived(stream), goesOnFrom_);
  event.Line = 1;
  event.Figures = IdentityWords(from_.Watch.FirstFrame(stream), context_.Services.Code);
  file_.Add(event);
}

void RecordingEvents::TellStretch(std::size_t stream, std::int64_t ringsBefore) {
  ringsBefore_ = ringsBefore;
  const sv::Stretch& stretch = from_.Watch.Track(stream).Since();
  TellGaps(stream, stretch);
  AddHappened(stream, "samples doubled", stretch.Doubled);
  AddHappened(stream, "samples out of order", stretch.Late);
  AddHappened(stream, "counter began anew", stretch.Jumped);
  const SynchChanges& synch = from_.Watch.Synch(stream);
  AddHappened(stream, "synchronisation changed", synch.Changed,
              "smpSynch from " + std::to_string(synch.From) + " to " + std::to_string(synch.To));
  from_.Watch.BeginStretch(stream);
}

void RecordingEvents::TellGaps(std::size_t stream, const sv::Stretch& stretch) {
  for (std::size_t i = 0; i < stretch.GapCount; ++i) {
    const sv::Gap& gap = stretch.Gaps[i];
    RecordEvent event = Of(stream, "samples missing");
    event.At = gap.At;
    event.Line = LineAt(gap.Place);
    event.Count = gap.Missing;
    event.Figures =
        Figure("by counter", gap.ByCounter) + ", " + Figure("by time of arrival", gap.Missing);
    file_.Add(event);
  }
  if (stretch.FurtherGaps == 0) return;
  RecordEvent event = Of(stream, "samples missing");
  event.Count = stretch.FurtherMissing;
  event.Figures = "at " + std::to_string(stretch.FurtherGaps) + " further places of this ring";
  file_.Add(event);
}

void RecordingEvents::AddHappened(std::size_t stream, const char* what,
                                  const sv::Happened& happened, const std::string& figures) {
  if (happened.Count == 0) return;
  RecordEvent event = Of(stream, what);
  event.At = happened.At;
  event.Line = LineAt(happened.Place);
  event.Count = happened.Count;
  event.Figures = figures;
  file_.Add(event);
}

void RecordingEvents::TellSystem() {
  if (const StreamWatch::Time step = from_.Watch.TakeClockStep(); step != StreamWatch::Time{0}) {
    const double seconds = std::chrono::duration<double>(step).count();
    Add("clock set", "by " + platform::NumberText().Format(seconds, "0.000") + " s");
  }
  const std::uint64_t tooLong = from_.State.Counters.TooLong;
  if (tooLong > tooLong_) Add("frames too long", "not stored", tooLong - tooLong_);
  tooLong_ = tooLong;
  const std::optional<std::uint64_t> dropped = from_.Capture.Dropped();
  if (dropped && *dropped > dropped_.value_or(0)) {
    Add("frames dropped by the system", "nobody took them in time",
        *dropped - dropped_.value_or(0));
  }
  if (dropped) dropped_ = dropped;
}

void RecordingEvents::TellRing(std::size_t stream, const std::string& failure) {
  Stream& told = streams_[stream];
  LookForFile(stream);
  const bool stored = from_.Samples.Report.Written(stream) > told.Written && failure.empty();
  RecordEvent event = Of(stream, stored ? "stored again" : "ring not stored");
  if (stored) {
    CountStored(stream);
    event.Line = (told.InFile - 1) * RecordRings::Cells + 1;
    event.Figures = Figure("rings lost until now", told.Lost);
  } else {
    ++told.Lost;
    event.Line = told.InFile * RecordRings::Cells + 1;
    event.Count = RecordRings::Cells;
    event.Figures = failure.empty() ? from_.Samples.Report.Reason(stream) : failure;
  }
  if (!stored || told.Failing) file_.Add(event);
  told.Failing = !stored;
}

void RecordingEvents::LookForFile(std::size_t stream) {
  Stream& told = streams_[stream];
  const std::int64_t gone = from_.Samples.Report.FilesGone(stream);
  if (gone == told.FilesGone) return;
  told.FilesGone = gone;
  told.Away = true;
  RecordEvent event = Of(stream, "file is gone");
  event.Figures = Figure("rings in it", told.InFile);
  file_.Add(event);
}

void RecordingEvents::CountStored(std::size_t stream) {
  Stream& told = streams_[stream];
  ++told.Stored;
  told.Written = from_.Samples.Report.Written(stream);
  const std::int64_t size = context_.Services.Files.FileSize(RecordPath(context_, stream));
  // One that is larger than what went away, by half a ring at least, is that file, which is there
  // again.
  const bool back = told.InFile > 0 && size > told.Size + told.Size / told.InFile / 2;
  if (told.Away && !back) told.InFile = 0;
  told.Away = false;
  ++told.InFile;
  told.Size = size;
}

void RecordingEvents::TellSilence(std::size_t stream, StreamWatch::Time now) {
  Stream& told = streams_[stream];
  if (!told.Met) return;
  const StreamWatch::Time last = from_.Watch.LastArrived(stream);
  const bool silent = now - last >= LongestRest;
  if (silent && !told.Silent) {
    RecordEvent event = Of(stream, "stream silent");
    event.At = last;
    event.Line = told.InFile * RecordRings::Cells + from_.Watch.Track(stream).Since().Frames + 1;
    file_.Add(event);
  }
  told.Silent = silent;
}

void RecordingEvents::TellSilentEnd(std::size_t stream) {
  Stream& told = streams_[stream];
  if (!told.Met) return;
  const StreamWatch::Time now = from_.Watch.WallTime();
  TellSilence(stream, now);
  if (!told.Silent) return;
  told.MissingAtEnd = from_.Watch.Track(stream).SamplesSent(now - from_.Watch.LastArrived(stream));
  RecordEvent event = Of(stream, "samples missing");
  event.Count = told.MissingAtEnd;
  event.Figures = "none came up to the end, " + Figure("by the time", told.MissingAtEnd);
  file_.Add(event);
}

void RecordingEvents::AdapterChanged(platform::Presence presence) {
  if (!running_) return;
  switch (presence) {
    case platform::Presence::There:
      Add("interface is there again");
      break;
    case platform::Presence::SwitchedOff:
      Add("interface switched off");
      break;
    case platform::Presence::Gone:
      Add("interface gone");
      break;
  }
  Write();
}

bool RecordingEvents::WorthAFile() const {
  // The files before have told of the recording: an end in front of the first ring of the next ones
  // leaves nothing to stand beside. A stream that has ceased is told of all the same.
  const bool further = goesOnFrom_ != StreamWatch::Time{0};
  return std::any_of(streams_.begin(), streams_.end(), [further](const Stream& each) {
    return each.Stored > 0 || each.Lost > 0 || (each.Met && (!further || each.Silent));
  });
}

void RecordingEvents::End(const std::string& why) {
  if (!running_) return;
  running_ = false;
  TellSystem();
  for (std::size_t stream = 0; stream < streams_.size(); ++stream) {
    from_.Samples.Report.LookForFile(stream);
    LookForFile(stream);
    TellStream(stream);
    // The places of a ring that was not full lie behind the end of the file.
    if (streams_[stream].Met) TellStretch(stream, streams_[stream].InFile);
    TellSilentEnd(stream);
  }
  if (!file_.IsThere() && !WorthAFile()) {
    file_.LeaveOut();
    Write();
    return;
  }
  for (std::size_t stream = 0; stream < streams_.size(); ++stream) TellTotals(stream);
  Add("end", why);
  Write();
}

void RecordingEvents::TellTotals(std::size_t stream) {
  const Stream& told = streams_[stream];
  if (stream == 1 && !told.Met && context_.Present.StreamCount != 2) return;
  const sv::TrackTotals total = from_.Watch.Track(stream).Totals() - told.AtBegin;
  RecordEvent event = Of(stream, "total");
  event.Line = told.InFile * RecordRings::Cells;
  event.Count = static_cast<std::uint64_t>(told.Stored * RecordRings::Cells);
  event.Figures = Figure("samples stored", told.Stored * RecordRings::Cells) + ", " +
                  Figure("received", total.Samples) + ", " +
                  Figure("missing", total.Missing + told.MissingAtEnd) + ", " +
                  Figure("of these by counter", total.ByCounter) + ", " +
                  Figure("doubled", total.Doubled) + ", " + Figure("out of order", total.Late) +
                  ", " + Figure("rings not stored", told.Lost);
  if (!told.Met) event.Figures = "never came";
  file_.Add(event);
}

std::string RecordingEvents::Name() const {
  if (!file_.IsThere()) return {};
  return EventsName(from_.State.RecordFileName);
}

void RecordingEvents::Add(const char* what, const std::string& figures,
                          std::optional<std::uint64_t> count) {
  file_.Add({.At = from_.Watch.WallTime(), .What = what, .Count = count, .Figures = figures});
}

RecordEvent RecordingEvents::Of(std::size_t stream, const char* what) const {
  return {.At = from_.Watch.WallTime(), .Stream = stream, .What = what};
}

}  // namespace packetroutines
