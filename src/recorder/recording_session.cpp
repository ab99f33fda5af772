#include "recorder/recording_session.h"

#include <utility>

#include "platform/failure.h"
#include "platform/trap.h"
#include "recorder/raised.h"
#include "recorder/record_files.h"

namespace subroutines {

namespace line = forms::record_line;
namespace file_format = packetroutines::file_format;
using packetroutines::Raised;
using packetroutines::RecordFormats;
using platform::Crlf;
using platform::Failure;

namespace {

constexpr platform::Rgb Black{0, 0, 0};
constexpr platform::Rgb LightRed{255, 0, 0};
constexpr platform::Rgb ButtonColour{237, 246, 240};

/// Why the configuration of a recording could not be ended.
std::string ReasonOf(const Failure& failure) {
  const bool noDate = failure.Number() == platform::failure::TypeMismatch ||
                      failure.Number() == platform::failure::InvalidProcedureCall;
  return noDate ? "Its name holds no date and time of a start." : failure.Text() + ".";
}

bool IsNoRecording(const packetroutines::Mode& mode) {
  return mode.Kind != packetroutines::ModeKind::Recording;
}

}  // namespace

RecordingSession::RecordingSession(forms::RecorderControls& recorder, config::Settings& settings,
                                   StoredSettings& stored, packetroutines::AcquisitionState& state,
                                   packetroutines::CaptureSession& capture,
                                   const RecordingParts& parts, const RecordingServices& services)
    : recorder_(recorder),
      settings_(settings),
      stored_(stored),
      state_(state),
      capture_(capture),
      parts_(parts),
      services_(services) {
  recorder_.CWButton3.ValueChanged = [this] { CWButton3_ValueChanged(); };
  for (std::size_t i = 0; i < recorder_.Option2.size(); ++i) {
    recorder_.Option2[i].Click = [this, i] { Option2_Click(i); };
  }
}

void RecordingSession::Load() {
  recorder_.CWButton3.BackColor = ButtonColour;
}

void RecordingSession::ShowFileFormat() {
  const packetroutines::RecordFormat* format = packetroutines::FindFormat(settings_.FileFormat);
  if (format == nullptr) return;
  recorder_.Option2[static_cast<std::size_t>(format - RecordFormats.data())].Value = true;
}

void RecordingSession::Option2_Click(std::size_t index) {
  if (state_.RecorderBusy) return;
  settings_.FileFormat = RecordFormats[index].Name;
  state_.RecordFileName = packetroutines::RecordPlaceholder(RecordFormats[index]);
  const packetroutines::RecordContext& context = parts_.Context;
  Line(line::FirstPath).Caption =
      packetroutines::RecordPath(context.Files, settings_, state_.RecordFileName);
  // What a text recording has left on the view stays for the text format alone.
  if (index != forms::record_format::Text) {
    recorder_.CWGraph2.Visible = false;
    recorder_.Command9.Visible = false;
  }
  stored_.SaveSettings();
}

void RecordingSession::CWButton3_ValueChanged() {
  // A press while a start is under way drops it; the start sees to that itself.
  if (state_.RecorderBusy || starting_) return;
  // A recording that is being finished has the page for itself: a press in its pumps would begin
  // another one in the midst of it.
  if (stopping_) {
    SetQuietly(false);
    return;
  }
  if (recorder_.CWButton3.Value) {
    Start();
  } else {
    Stop();
  }
}

void RecordingSession::SetQuietly(bool value) {
  const bool busy = std::exchange(state_.RecorderBusy, true);
  recorder_.CWButton3.Value = value;
  state_.RecorderBusy = busy;
}

void RecordingSession::Start() {
  if (!Prepare()) return;
  ShowFileFormat();
  NameFiles();
  capture_.StartCapture("LookingForRecording");
}

bool RecordingSession::Prepare() {
  const Raised starting(starting_);
  const std::uint32_t tabChanges = state_.TabChanges;
  services_.Usual.Events.Pump();
  if (state_.TabChanges != tabChanges || !recorder_.CWButton3.Value) return false;
  state_.PacketLengthPending = true;
  capture_.SetupAdapter(packetroutines::RecordingBuffer);
  state_.BlockCount = 0;
  state_.BlockCount2 = 0;
  BeginProgress();
  // No recording is stopped before its first ring is on disk.
  recorder_.CWButton3.Visible = false;
  LockFormats();
  if (state_.TabChanges != tabChanges) return false;
  if (!recorder_.CWButton3.Value) GivePageBack();
  return recorder_.CWButton3.Value;
}

void RecordingSession::BeginProgress() {
  Line(line::Progress).ForeColor = Black;
  Line(line::Progress).Caption = "0s / 0 samples";
  Line(line::Progress).ForeColor = LightRed;
  parts_.Writers.Report.Begin();
}

void RecordingSession::LockFormats() {
  state_.RecorderBusy = true;
  EnableFormats(false);
  services_.Usual.Events.Pump();
  recorder_.CWGraph2.Visible = false;
  recorder_.Command9.Visible = false;
  state_.RecorderBusy = false;
}

void RecordingSession::GivePageBack() {
  Line(line::Progress).ForeColor = Black;
  recorder_.CWButton3.Visible = true;
  EnableFormats(true);
}

void RecordingSession::NameFiles() {
  const packetroutines::RecordFormat* format = packetroutines::FindFormat(settings_.FileFormat);
  if (format != nullptr) {
    state_.RecordFileName = "SV record " + platform::DottedText(services_.Calendar.Now(), '-') +
                            std::string(format->Extension);
    if (format->Name == file_format::Worksheet) parts_.Writers.Sheets.ExcelStarted = {};
  }
  const auto path = [&](const char* prefix) {
    return packetroutines::RecordPath(parts_.Context.Files, settings_,
                                      prefix + state_.RecordFileName);
  };
  Line(line::FirstPath).Caption = path(packetroutines::FirstPrefix);
  Line(line::SecondPath).Caption = path(packetroutines::SecondPrefix);
}

void RecordingSession::Stop() {
  const Raised stopping(stopping_);
  const std::uint32_t tabChanges = state_.TabChanges;
  services_.Usual.Events.Pump();
  StopCapture();
  state_.LookingForRecording = false;
  FinishFiles();
  Analyse();
  // Another view that was chosen meanwhile stays free of what belongs to this one.
  if (state_.TabChanges == tabChanges) {
    if (settings_.FileFormat == file_format::Text) recorder_.Command9.Visible = true;
    parts_.Reader.ViewRecording();
  }
  EnableFormats(true);
}

void RecordingSession::StopCapture() {
  // What runs behind a change of the tab is another view.
  if (packetroutines::AnyModeSet(state_, IsNoRecording)) return;
  // Where the writer itself ends the recording, its ring is not free for what waits.
  if (parts_.Samples.AtWork()) {
    capture_.StopCapture();
  } else {
    capture_.StopBehindArrived();
  }
}

void RecordingSession::FinishFiles() {
  const std::string& format = settings_.FileFormat;
  if (format == file_format::Text) {
    parts_.Samples.WriteRecordBlock(packetroutines::SampleWriter::RewindText);
  }
  // The second worksheet stays open; its own end, or that of the program, finishes it.
  if (format == file_format::Worksheet) CloseSheet(0);
  if (format == file_format::Comtrade) FinishComtrade();
}

void RecordingSession::FinishComtrade() {
  packetroutines::FileNumbers& open = parts_.Context.Open;
  const auto tell = [&](const Failure& failure) {
    open.CloseQuietly(packetroutines::TextFile);
    services_.Usual.Dialogs.Show({"Information",
                                  "The file " + parts_.Writers.Comtrade.ConfigPath() +
                                      " is incomplete." + Crlf + ReasonOf(failure) + Crlf +
                                      "The samples in the data file are not affected.",
                                  platform::Icon::Information});
    return platform::Verdict::LeaveRoutine;
  };
  // A ring that failed may have left its file open.
  open.CloseQuietly(packetroutines::TextFile);
  platform::RunSteps(services_.Usual.Program, tell,
                     [&] { parts_.Writers.Comtrade.FinishComtradeConfig(); });
}

void RecordingSession::Analyse() {
  const std::string progress = Line(line::Progress).Caption;
  Line(line::Progress).ForeColor = Black;
  Line(line::Progress).Caption = progress + "; please keep patient, analysis running...";
  services_.Usual.Events.Pump();
  if (settings_.FileFormat == file_format::Text) {
    bool nothingToRead = false;
    parts_.Reader.BuildRecordLog(nothingToRead);
  }
  Line(line::Progress).Caption = progress;
}

void RecordingSession::StopAt(std::size_t stream) {
  recorder_.CWButton3.Value = false;
  capture_.StopCapture();
  state_.LookingForRecording = false;
  if (settings_.FileFormat == file_format::Worksheet) CloseSheet(stream);
}

void RecordingSession::CloseSheet(std::size_t stream) {
  packetroutines::ExcelFile& sheet = parts_.Writers.Sheets.ExcelOut[stream];
  sheet.CloseFile();
  // The sheet keeps its failures to itself; the page tells of them.
  if (sheet.Trouble()) parts_.Writers.Report.NotStored(*sheet.Trouble());
}

void RecordingSession::EnableFormats(bool enabled) {
  for (platform::OptionButton& format : recorder_.Option2) format.Enabled = enabled;
}

}  // namespace subroutines
