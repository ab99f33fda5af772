#include "recorder/session/recording_session.h"

#include <utility>

#include "base/failure.h"
#include "base/raised.h"
#include "base/trap.h"
#include "capture/record_progress.h"
#include "recorder/writing/record_names.h"

namespace subroutines {

namespace line = forms::record_line;
using packetroutines::SampleFormat;
using platform::Crlf;
using platform::Failure;
using platform::Flow;
using platform::RunSteps;
using platform::Verdict;

namespace {

constexpr platform::Rgb Black{0, 0, 0};
constexpr platform::Rgb LightRed{255, 0, 0};
constexpr platform::Rgb ButtonColour{237, 246, 240};
constexpr const char* StopComes =
    "STOP comes when 4000 samples are stored. To end before, choose another tab.";

}  // namespace

/// Keeps the phase of a stop through all of a routine that ends the recording, also behind the stop
/// itself, and gives it up at the end of the outermost one.
class RecordingSession::Stopping {
 public:
  explicit Stopping(Phase& phase)
      : phase_(phase),
        behind_(phase == Phase::Stopping ? phase : Phase::Idle),
        first_(phase == Phase::Recording) {
    phase_ = Phase::Stopping;
  }
  Stopping(const Stopping&) = delete;
  Stopping& operator=(const Stopping&) = delete;
  ~Stopping() { phase_ = behind_; }

  /// A recording was under way, and no stop yet.
  bool First() const { return first_; }

 private:
  Phase& phase_;
  Phase behind_;
  bool first_;
};

RecordingSession::RecordingSession(forms::RecorderControls& recorder, platform::QuietLine& line,
                                   packetroutines::RunControl& run, config::Settings& settings,
                                   StoredSettings& stored, packetroutines::AcquisitionState& state,
                                   packetroutines::CaptureSession& capture,
                                   packetroutines::Writing& writing,
                                   packetroutines::RecordingEvents& events,
                                   const packetroutines::RecorderServices& services)
    : recorder_(recorder),
      run_(run),
      settings_(settings),
      stored_(stored),
      state_(state),
      capture_(capture),
      writing_(writing),
      events_(events),
      services_(services),
      files_(recorder, state, writing),
      parts_(writing, events, files_, Reader),
      span_(line, services.Calendar, services.Sleep),
      visit_(state) {
  recorder_.CWButton3.ValueChanged = [this] { CWButton3_ValueChanged(); };
  for (std::size_t i = 0; i < recorder_.Option2.size(); ++i) {
    recorder_.Option2[i].Click = [this, i] { Option2_Click(i); };
  }
  // Whoever hides the button or brings it back, and switches it off meanwhile.
  recorder_.CWButton3.Visible.Observe([this] { TellWhatStopWaitsFor(); });
  recorder_.CWButton3.Value.Observe([this] { TellWhatStopWaitsFor(); });
}

void RecordingSession::Load() {
  recorder_.CWButton3.BackColor = ButtonColour;
}

void RecordingSession::ShowFileFormat() {
  const SampleFormat* const chosen = writing_.Formats.Chosen();
  for (std::size_t i = 0; i < recorder_.Option2.size(); ++i) {
    if (&writing_.Formats[i] == chosen) recorder_.Option2[i].Value = true;
  }
}

void RecordingSession::Option2_Click(std::size_t index) {
  // A recording that is being finished is finished in its own format.
  if (state_.RecorderBusy || phase_ == Phase::Stopping) return;
  const packetroutines::FormatFacts& format = writing_.Formats[index].Facts;
  settings_.FileFormat = format.Name;
  state_.RecordFileName = packetroutines::RecordPlaceholder(format.Extension);
  Line(line::FirstPath).Caption = PathOf(state_.RecordFileName);
  // What a recording with a log has left on the view does not stay for another format.
  if (!HasLog()) {
    recorder_.CWGraph2.Visible = false;
    recorder_.Command9.Visible = false;
  }
  stored_.SaveSettings();
}

bool RecordingSession::HasLog() const {
  return packetroutines::SequelOf(writing_.Formats.Chosen()) ==
         packetroutines::Sequel::LogAndQuickView;
}

std::string RecordingSession::PathOf(const std::string& name) const {
  return packetroutines::RecordPath(services_.Files, settings_, name);
}

void RecordingSession::CWButton3_ValueChanged() {
  if (state_.RecorderBusy) return;
  switch (phase_) {
    case Phase::Starting:
      // The start looks at the button behind each of its pumps, unless its page was left; then a
      // press on the page that was entered anew has nobody to take it.
      if (Left()) SetQuietly(false);
      return;
    case Phase::Stopping:
      // A recording that is being finished has the page for itself: a press in its pumps would
      // begin another one in the midst of it.
      SetQuietly(false);
      return;
    case Phase::Idle:
    case Phase::Recording:
      break;
  }
  if (recorder_.CWButton3.Value) {
    Start();
  } else {
    const Stopping stopping(phase_);
    // A start that was refused switches the button off before capture runs.
    Stop(state_.CaptureRunning ? EndReason::Stop : EndReason::Refused, Arrived::Stored);
  }
}

void RecordingSession::SetQuietly(bool value) {
  const bool busy = std::exchange(state_.RecorderBusy, true);
  recorder_.CWButton3.Value = value;
  state_.RecorderBusy = busy;
}

void RecordingSession::Start() {
  phase_ = Phase::Starting;
  visit_.BeginAnew();
  const auto drop = [this](const Failure& failure) {
    writing_.Report.AddTrouble("The recording did not begin: " + failure.Text());
    return Verdict::LeaveRoutine;
  };
  if (RunSteps(services_.Usual.Program, drop, [this] { return Prepare(); }) == Flow::Leave) {
    DropStart();
    return;
  }
  phase_ = Phase::Recording;
  span_.Begin();
  BeginCapture();
  // A refused filter has ended it.
  if (Left() || recorder_.CWButton3.Value) return;
  recorder_.CWButton3.Visible = true;
  Check->Offer();
}

void RecordingSession::BeginCapture() {
  events_.Begin();
  parts_.Begin();
  capture_.StartCapture("LookingForRecording");
}

void RecordingSession::AwaitAnew() {
  if (!Running()) return;
  capture_.PrepareRun(packetroutines::RecordingBuffer);
  NameFiles();
  BeginCapture();
  run_.CallOffWatchdog();
}

Flow RecordingSession::Prepare() {
  services_.Usual.Events.Pump();
  if (!GoesOn()) return Flow::Leave;
  files_.Begin();
  capture_.PrepareRun(packetroutines::RecordingBuffer);
  capture_.CountBlocksAnew();
  BeginProgress();
  // No recording is stopped before its first ring is on disk.
  recorder_.CWButton3.Visible = false;
  LockFormats();
  if (!GoesOn()) return Flow::Leave;
  ShowFileFormat();
  NameFiles();
  return Flow::Next;
}

void RecordingSession::BeginProgress() {
  Check->Withdraw();
  Line(line::Progress).ForeColor = Black;
  Line(line::Progress).Caption = packetroutines::RecordProgress(services_.Numbers, 0);
  Line(line::Progress).ForeColor = LightRed;
}

void RecordingSession::LockFormats() {
  const platform::Raised busy(state_.RecorderBusy);
  EnableFormats(false);
  services_.Usual.Events.Pump();
  recorder_.CWGraph2.Visible = false;
  recorder_.Command9.Visible = false;
}

void RecordingSession::NameFiles() {
  if (SampleFormat* const format = writing_.Formats.Chosen()) format->Begin();
  files_.Name(files_.NameOfNow());
}

void RecordingSession::DropStart() {
  phase_ = Phase::Idle;
  if (Left()) return;
  SetQuietly(false);
  Line(line::Progress).ForeColor = Black;
  recorder_.CWButton3.Visible = true;
  EnableFormats(true);
  Check->Offer();
}

bool RecordingSession::Running() const {
  return span_.UnderWay() && phase_ == Phase::Recording && state_.LookingForRecording &&
         state_.CaptureRunning;
}

void RecordingSession::Ended(EndReason reason) {
  if (!span_.End(reason)) return;
  parts_.End();
  writing_.Report.End();
  events_.End(std::string(Words(reason)));
  if (Listener) Listener->RecordingEnded(reason);
}

void RecordingSession::Interrupt(EndReason reason) {
  // A stop that is under way has its own reason, and goes on.
  if (phase_ != Phase::Recording) return;
  Ended(reason);
  TellOfTotals();
}

void RecordingSession::InterruptForGood(EndReason reason) {
  if (!span_.UnderWay()) return;
  const auto skip = [](const Failure&) { return Verdict::SkipStep; };
  // First what cannot wait for anything: whoever ends the program may be in a hurry.
  RunSteps(
      services_.Usual.Program, skip, [&] { Ended(reason); }, [this] { files_.FinishForGood(); });
}

void RecordingSession::Stop(EndReason reason, Arrived arrived) {
  const char* left = "The recording was not ended as usual";
  const auto tell = [&](const Failure& failure) {
    writing_.Report.AddTrouble(left + (": " + failure.Text()));
    return Verdict::SkipStep;
  };
  std::string progress;
  bool found = false;
  // The files at hand are the last ones, whatever rings still come.
  parts_.End();
  // A step ends with what may fail in it, so that such a failure costs nothing behind it.
  RunSteps(
      services_.Usual.Program, tell, [&] { services_.Usual.Events.Pump(); },
      [&] { StopCapture(arrived); }, [&] { Ended(reason); },
      [&] {
        run_.Clear("LookingForRecording");
        if (HasLog()) {
          writing_.Samples.WriteRecordBlock(packetroutines::SampleWriter::RewindText);
        }
        files_.Finish();
      },
      [&] {
        progress = Line(line::Progress).Caption;
        Line(line::Progress).ForeColor = Black;
        Line(line::Progress).Caption = progress + "; please keep patient, analysis running...";
        services_.Usual.Events.Pump();
      },
      [&] {
        left = "Log and quick view are left out";
        found = files_.FindToRead();
      },
      [&] {
        left = "The log is left out";
        BuildLog(found);
      },
      [&] {
        TellOfTotals();
        left = "The quick view is left out";
        Line(line::Progress).Caption = progress;
        ShowRecorded(found);
      },
      [&] {
        EnableFormats(true);
        ShowFileFormat();
      },
      [&] {
        left = "The check of earlier recordings is left out";
        if (!Left()) Check->Offer();
      });
}

void RecordingSession::BuildLog(bool found) {
  bool nothingToRead = false;
  if (found && HasLog()) Reader->BuildRecordLog(nothingToRead);
}

void RecordingSession::TellOfTotals() {
  // The log is for one stream alone.
  if (HasLog() && writing_.Context.Present.StreamCount == 2 && !events_.Name().empty()) {
    writing_.Report.Add("Two streams have no log; the totals of both stand in \"" + events_.Name() +
                        "\"");
  }
}

void RecordingSession::ShowRecorded(bool found) {
  if (Left()) return;
  if (HasLog()) recorder_.Command9.Visible = true;
  if (found) Reader->ViewRecording();
}

void RecordingSession::StopCapture(Arrived arrived) {
  // A change of the tab has stopped it already, and what runs by now belongs to another view.
  if (Left()) return;
  if (arrived == Arrived::Stored) {
    capture_.StopBehindArrived();
  } else {
    capture_.StopCapture();
  }
}

void RecordingSession::StopAt(std::size_t stream) {
  const Stopping stopping(phase_);
  SetQuietly(false);
  // The ring that is being written is full: no pump of the stop may fill it anew.
  StopCapture(Arrived::Dropped);
  if (stopping.First()) Stop(EndReason::RowLimit, Arrived::Dropped);
  StopCapture(Arrived::Dropped);
  run_.Clear("LookingForRecording");
  if (SampleFormat* const format = writing_.Formats.Chosen()) format->EndAtLimit(stream);
  ShowFileFormat();
}

void RecordingSession::StopOnFullDisk() {
  const Stopping stopping(phase_);
  // A run that begins in the pumps of the stop is another view's, and so is its watchdog.
  const bool resting = capture_.StopCapture();
  run_.Clear("LookingForRecording");
  if (resting) run_.CallOffWatchdog();
  Ended(EndReason::DiskFull);
  services_.Usual.Dialogs.Show({"Attention",
                                std::string("Disk full.") + Crlf +
                                    "Please check the disk path, if you can free some disk space." +
                                    Crlf + "Recording ist stopped.",
                                platform::Icon::Information});
  SetQuietly(false);
  events_.WriteRest();
  if (stopping.First()) Stop(EndReason::DiskFull, Arrived::Dropped);
  recorder_.CWButton3.Enabled = true;
  writing_.Open.CloseQuietly(packetroutines::TextFile);
}

void RecordingSession::TellWhatStopWaitsFor() {
  const bool awaited = recorder_.CWButton3.Value && !recorder_.CWButton3.Visible;
  recorder_.StopWaits.Say(awaited ? StopComes : "");
}

void RecordingSession::EnableFormats(bool enabled) {
  for (platform::OptionButton& format : recorder_.Option2) format.Enabled = enabled;
}

}  // namespace subroutines
