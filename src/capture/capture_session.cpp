#include "capture/capture_session.h"

#include <string>

#include "base/failure.h"

namespace packetroutines {

namespace property = platform::adapter_property;
using platform::Crlf;
using platform::Failure;
using platform::Flow;
using platform::Icon;
using platform::RunSteps;
using platform::Verdict;

namespace {

constexpr const char* FixedFilter = "ether proto 0x88ba";
constexpr const char* RefusedLine =
    "Capture did not start: the 'Packet filter condition' under 'Setup' was refused.";

/// What is left of the box when it is closed: the line of the view that was to run.
void TellRefusal(const RunFields& state, forms::SharedControls& shared) {
  for (const Mode& mode : Modes) {
    if (state.*mode.Flag && mode.QuietLine != NoLine)
      shared.QuietLine[mode.QuietLine].Say(RefusedLine);
  }
}

/// The next start is another attempt.
void TakeRefusalBack(const Mode& mode, forms::SharedControls& shared) {
  if (mode.QuietLine == NoLine) return;
  platform::QuietLine& line = shared.QuietLine[mode.QuietLine];
  if (line.Caption == RefusedLine) line.Say({});
}

}  // namespace

CaptureSession::CaptureSession(platform::CaptureLayer& layer, const CaptureControls& controls,
                               config::Settings& settings, config::RunSettings& present,
                               AcquisitionState& state, RunControl& run,
                               const platform::Services& services)
    : layer_(layer),
      controls_(controls),
      settings_(settings),
      present_(present),
      state_(state),
      streams_(state),
      run_(run),
      services_(services) {}

void CaptureSession::BeginRun(ModeName mode, const platform::FrameWish& wish) {
  PrepareRun(LiveBuffer, wish);
  StartCapture(mode);
}

void CaptureSession::PrepareRun(std::int32_t buffSize, const platform::FrameWish& wish) {
  run_.MeasureLength();
  SetupAdapter(buffSize, wish);
}

void CaptureSession::CountBlocksAnew() {
  streams_.BlockCount = 0;
  streams_.BlockCount2 = 0;
}

bool CaptureSession::EndRun(ModeName mode) {
  run_.Clear(mode);
  return StopCapture();
}

platform::CaptureObject& CaptureSession::aPacketX() {
  if (!aPacketX_) throw Failure(platform::failure::ObjectNotSet);
  return *aPacketX_;
}

void CaptureSession::FillAdapterList() {
  RunSteps(
      services_.Program,
      [this](const Failure& failure, int attempt) {
        return OnAdapterListFailure(failure, attempt);
      },
      [&] {
        aPacketX_ = layer_.NewCaptureObject();
        aPacketX_->OnPacket = [this](const platform::CapturedFrame& frame) {
          Packets->aPacketX_OnPacket(frame);
        };
      },
      [&] {
        for (std::int32_t i = 1; i <= aPacketX().AdapterCount(); ++i) {
          const platform::CaptureAdapter& adapter = aPacketX().Adapters(i);
          if (adapter.IsGood()) controls_.Setup.Combo1.AddItem(adapter.Description());
        }
      },
      [&] { controls_.Setup.Combo1.ListIndex = settings_.AdapterIndex - 1; });
}

Verdict CaptureSession::OnAdapterListFailure(const Failure& failure, int attempt) {
  // Where the first entry cannot be selected either, there is none, and trying on would never end.
  if (failure.Number() == platform::failure::InvalidPropertyValue && attempt == 1) {
    settings_.AdapterIndex = 1;
    return Verdict::RetryStep;
  }
  const auto answer = services_.Dialogs.Show(
      {"Attention",
       std::string("In a correct environment this error should not happen!") + Crlf + Crlf +
           "Maybe WinPcap or PacketX is not installed. Therefore no networkadapter was found." +
           Crlf + Crlf + Crlf + "Should the program be finished?",
       Icon::Critical, platform::Buttons::YesNo});
  return answer == platform::Answer::Yes ? Verdict::EndProgram : Verdict::LeaveRoutine;
}

void CaptureSession::SetupAdapter(std::int32_t buffSize, const platform::FrameWish& wish) {
  RunSteps(
      services_.Program, [this](const Failure& failure) { return OnSetupFailure(failure); },
      [&] { aPacketX().SetWish(wish); },
      [&] { aPacketX().SetAdapter(aPacketX().Adapters(ChosenAdapter())); },
      [&] { aPacketX().Adapter().Set(property::BufferSize, buffSize); },
      [&] { aPacketX().Adapter().Set(property::BytesToGather, 0); },
      [&] { aPacketX().Adapter().Set(property::HardwareFilter, platform::PromiscuousReception); },
      [&] { aPacketX().Adapter().Set(property::Mode, platform::CaptureMode); },
      [&] { aPacketX().Adapter().Set(property::Filter, FilterExpression()); });
}

std::int32_t CaptureSession::AddFile(const std::string& path) {
  const std::int32_t number = layer_.AddFile(path);
  platform::ComboBox& list = controls_.Setup.Combo1;
  if (number > list.ListCount()) {
    if (present_.FirstFileOfRun == 0) present_.FirstFileOfRun = number;
    list.AddItem(aPacketX().Adapters(number).Description());
  }
  return number - 1;
}

std::int32_t CaptureSession::ChosenAdapter() const {
  return present_.FileOfRun > 0 ? present_.FileOfRun : settings_.AdapterIndex;
}

std::string CaptureSession::FilterExpression() const {
  if (settings_.FilterString.empty()) return FixedFilter;
  return std::string(FixedFilter) + " " + settings_.FilterString;
}

Verdict CaptureSession::OnSetupFailure(const Failure& failure) {
  services_.Dialogs.Show({"unknown exception",
                          std::string("unknown error") + Crlf + failure.Text() + Crlf +
                              "This happens while initialization of network adapters." + Crlf +
                              Crlf + "Please check first, if your setup is complete." + Crlf +
                              "Second, if the installation is complete (WinPcap/PacketX).",
                          Icon::Critical});
  return Verdict::LeaveRoutine;
}

void CaptureSession::StartCapture(ModeName name) {
  if (state_.Leaving > 0) return;
  const Mode* mode = name.Find();
  RunSteps(
      services_.Program, [this](const Failure& failure) { return OnStartFailure(failure); },
      [&] {
        if (mode != nullptr) SetMode(*mode);
        if (!StopCapture() || (mode != nullptr && TakenBack(*mode))) return Flow::Leave;
        streams_.OffsetsKnown = {};
        ShowIndicators(true);
        Begin();
        run_.CaptureBegan();
        return Flow::Next;
      });
}

void CaptureSession::Begin() {
  ++starts_;
  aPacketX().Start();
}

void CaptureSession::SetMode(const Mode& mode) {
  run_.SetMode(mode);
  TakeRefusalBack(mode, controls_.Shared);
}

bool CaptureSession::TakenBack(const Mode& mode) {
  if (state_.*mode.Flag) return false;
  run_.CallOffWatchdog();
  return true;
}

void CaptureSession::ShowIndicators(bool visible) {
  for (platform::Shape& indicator : controls_.Shared.Shape12) indicator.Visible = visible;
}

Verdict CaptureSession::OnStartFailure(const Failure& failure) {
  if (failure.Number() != platform::failure::FilterRefused) {
    services_.Dialogs.Show({"Attention",
                            std::string("Unknown error!") + Crlf + Crlf +
                                "Can't handle network connection!" + Crlf + Crlf +
                                "Reason:" + Crlf + "- setup isn't correct",
                            Icon::Exclamation});
    return Verdict::EndProgram;
  }
  const bool recording = state_.LookingForRecording;
  const PageVisit visit(state_);
  TellRefusal(state_, controls_.Shared);
  ShowIndicators(false);
  streams_.OffsetsKnown = {};
  run_.CallOffWatchdog();
  controls_.Buttons.Command2.Enabled = true;
  User->ReportEnded();
  controls_.Buttons.CWButton1.Value = false;
  controls_.Buttons.CWButton3.Value = false;
  controls_.Buttons.CWButton4.Value = false;
  controls_.Buttons.CWButton4.Enabled = true;
  GiveButtonsBack();
  User->CaptureRefused();
  // It was away until a first ring; now there will be none.
  if (recording && !visit.Over()) controls_.Buttons.CWButton3.Visible = true;
  services_.Dialogs.Show({"Attention",
                          std::string("Can't receive packets!") + Crlf + Crlf + "Reason:" + Crlf +
                              "- filter setup ('Packet filter condition') isn't correct",
                          Icon::Exclamation});
  return Verdict::LeaveRoutine;
}

void CaptureSession::GiveButtonsBack() {
  // The stop path of a button that is locked does not run, and a start that was refused brings no
  // frame to unlock it.
  run_.Clear("LookingForValues");
  run_.Clear("LookingForPhases");
  controls_.Buttons.CWButton2.Value = false;
  if (!controls_.Buttons.CWButton2.Enabled) run_.ReleaseButtons();
  controls_.Buttons.ShowIdleTips();
}

Verdict CaptureSession::OnStopFailure(const Failure& failure) {
  return failure.Number() == platform::failure::HarmlessStop ? Verdict::SkipStep
                                                             : Verdict::LeaveRoutine;
}

platform::Presence CaptureSession::AdapterPresence() {
  return aPacketX_ ? aPacketX_->AdapterPresence() : platform::Presence::There;
}

std::optional<std::uint64_t> CaptureSession::Dropped() {
  return aPacketX_ ? aPacketX_->Dropped() : std::nullopt;
}

void CaptureSession::StopBehindArrived() {
  const std::uint32_t starts = starts_;
  RunSteps(services_.Program, &OnStopFailure, [&] { aPacketX().DeliverArrived(); });
  // In a pump of these frames another view may have begun its run, which is not to be ended here.
  if (starts_ == starts) StopCapture();
}

bool CaptureSession::StopCapture() {
  const std::uint32_t starts = starts_;
  RunSteps(
      services_.Program, &OnStopFailure,
      [&] {
        ShowIndicators(false);
        aPacketX().Stop();
      },
      [&] { services_.Events.Pump(); },
      [&] {
        if (!oPacketColl_) oPacketColl_ = layer_.NewPacketCollection();
        oPacketColl_->Clear();
      },
      [&] { services_.Events.Pump(); },
      [&] {
        if (starts_ == starts) run_.CaptureEnded();
      });
  User->CaptureStopped();
  return starts_ == starts;
}

}  // namespace packetroutines
