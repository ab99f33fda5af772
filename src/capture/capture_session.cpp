#include "capture/capture_session.h"

#include <array>
#include <string>

#include "platform/failure.h"

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

struct Mode {
  std::string_view Name;
  std::int32_t TimerInterval;
  bool AcquisitionState::*Flag;
};

constexpr std::array<Mode, 6> Modes = {{
    {"Report", 4000, &AcquisitionState::ReportRequested},
    {"LookingForScope", 2000, &AcquisitionState::LookingForScope},
    {"LookingForValues", 2000, &AcquisitionState::LookingForValues},
    {"LookingForPhases", 2000, &AcquisitionState::LookingForPhases},
    {"LookingForRecording", 2000, &AcquisitionState::LookingForRecording},
    {"LookingForID", 2000, &AcquisitionState::LookingForID},
}};

}  // namespace

CaptureSession::CaptureSession(platform::CaptureLayer& layer, forms::Main& main,
                               config::Settings& settings, AcquisitionState& state,
                               platform::EventQueue& events, platform::Dialogs& dialogs,
                               platform::Program& program)
    : layer_(layer),
      main_(main),
      settings_(settings),
      state_(state),
      events_(events),
      dialogs_(dialogs),
      program_(program) {}

platform::CaptureObject& CaptureSession::aPacketX() {
  if (!aPacketX_) throw Failure(platform::failure::ObjectNotSet);
  return *aPacketX_;
}

void CaptureSession::FillAdapterList() {
  RunSteps(
      program_,
      [this](const Failure& failure, int attempt) {
        return OnAdapterListFailure(failure, attempt);
      },
      [&] {
        aPacketX_ = layer_.NewCaptureObject();
        aPacketX_->OnPacket = [this](const platform::CapturedFrame& frame) {
          aPacketX_OnPacket(frame);
        };
      },
      [&] {
        for (std::int32_t i = 1; i <= aPacketX().AdapterCount(); ++i) {
          const platform::CaptureAdapter& adapter = aPacketX().Adapters(i);
          if (adapter.IsGood()) main_.Combo1.AddItem(adapter.Description());
        }
      },
      [&] { main_.Combo1.ListIndex = settings_.AdapterIndex - 1; });
}

Verdict CaptureSession::OnAdapterListFailure(const Failure& failure, int attempt) {
  // Where the first entry cannot be selected either, there is none, and trying on would never end.
  if (failure.Number() == platform::failure::InvalidPropertyValue && attempt == 1) {
    settings_.AdapterIndex = 1;
    return Verdict::RetryStep;
  }
  const auto answer = dialogs_.Show(
      {"Attention",
       std::string("In a correct environment this error should not happen!") + Crlf + Crlf +
           "Maybe WinPcap or PacketX is not installed. Therefore no networkadapter was found." +
           Crlf + Crlf + Crlf + "Should the program be finished?",
       Icon::Critical, platform::Buttons::YesNo});
  return answer == platform::Answer::Yes ? Verdict::EndProgram : Verdict::LeaveRoutine;
}

void CaptureSession::SetupAdapter(std::int32_t buffSize) {
  RunSteps(
      program_, [this](const Failure& failure) { return OnSetupFailure(failure); },
      [&] { aPacketX().SetAdapter(aPacketX().Adapters(settings_.AdapterIndex)); },
      [&] { aPacketX().Adapter().Set(property::BufferSize, buffSize); },
      [&] { aPacketX().Adapter().Set(property::BytesToGather, 0); },
      [&] { aPacketX().Adapter().Set(property::HardwareFilter, platform::PromiscuousReception); },
      [&] { aPacketX().Adapter().Set(property::Mode, platform::CaptureMode); },
      [&] { aPacketX().Adapter().Set(property::Filter, FilterExpression()); });
}

std::string CaptureSession::FilterExpression() const {
  if (settings_.FilterString.empty()) return FixedFilter;
  return std::string(FixedFilter) + " " + settings_.FilterString;
}

Verdict CaptureSession::OnSetupFailure(const Failure& failure) {
  dialogs_.Show({"unknown exception",
                 std::string("unknown error") + Crlf + failure.Text() + Crlf +
                     "This happens while initialization of network adapters." + Crlf + Crlf +
                     "Please check first, if your setup is complete." + Crlf +
                     "Second, if the installation is complete (WinPcap/PacketX).",
                 Icon::Critical});
  return Verdict::LeaveRoutine;
}

void CaptureSession::StartCapture(std::string_view mode) {
  if (state_.Leaving > 0) return;
  const std::uint32_t tabChanges = state_.TabChanges;
  RunSteps(
      program_, [this](const Failure& failure) { return OnStartFailure(failure); },
      [&] { SetMode(mode); }, [&] { StopCapture(); },
      [&] { return state_.TabChanges == tabChanges ? Flow::Next : Flow::Leave; },
      [&] {
        state_.OffsetsKnown[0] = false;
        state_.OffsetsKnown[1] = false;
      },
      [&] { ShowIndicators(true); }, [&] { Begin(); }, [&] { state_.CaptureRunning = true; });
}

void CaptureSession::Begin() {
  ++starts_;
  aPacketX().Start();
}

void CaptureSession::SetMode(std::string_view name) {
  for (const Mode& mode : Modes) {
    if (mode.Name != name) continue;
    main_.Timer1.Interval = mode.TimerInterval;
    main_.Timer1.Enabled = true;
    state_.*mode.Flag = true;
    return;
  }
}

void CaptureSession::ShowIndicators(bool visible) {
  for (platform::Shape& indicator : main_.Shape12) indicator.Visible = visible;
}

Verdict CaptureSession::OnStartFailure(const Failure& failure) {
  if (failure.Number() != platform::failure::FilterRefused) {
    dialogs_.Show({"Attention",
                   std::string("Unknown error!") + Crlf + Crlf +
                       "Can't handle network connection!" + Crlf + Crlf + "Reason:" + Crlf +
                       "- setup isn't correct",
                   Icon::Exclamation});
    return Verdict::EndProgram;
  }
  ShowIndicators(false);
  state_.OffsetsKnown[0] = false;
  state_.OffsetsKnown[1] = false;
  main_.Timer1.Enabled = false;
  main_.Command2.Enabled = true;
  main_.CWButton1.Value = false;
  main_.CWButton3.Value = false;
  main_.CWButton4.Value = false;
  main_.CWButton4.Enabled = true;
  GiveButtonsBack();
  dialogs_.Show({"Attention",
                 std::string("Can't receive packets!") + Crlf + Crlf + "Reason:" + Crlf +
                     "- filter setup ('Packet filter condition') isn't correct",
                 Icon::Exclamation});
  return Verdict::LeaveRoutine;
}

void CaptureSession::GiveButtonsBack() {
  // The stop path of a button that is locked does not run, and a start that was refused brings no
  // frame to unlock it.
  state_.LookingForValues = false;
  state_.LookingForPhases = false;
  main_.CWButton2.Value = false;
  if (!main_.CWButton2.Enabled) main_.Timer3.Enabled = true;
  main_.ShowIdleTips();
}

void CaptureSession::StopCapture() {
  const std::uint32_t starts = starts_;
  const auto trap = [](const Failure& failure) {
    return failure.Number() == platform::failure::HarmlessStop ? Verdict::SkipStep
                                                               : Verdict::LeaveRoutine;
  };
  RunSteps(
      program_, trap, [&] { ShowIndicators(false); }, [&] { aPacketX().Stop(); },
      [&] { events_.Pump(); },
      [&] {
        if (!oPacketColl_) oPacketColl_ = layer_.NewPacketCollection();
        oPacketColl_->Clear();
      },
      [&] { events_.Pump(); }, [&] { EndWhatBegan(starts); },
      [&] { state_.CaptureRunning = false; });
  Stopped();
}

void CaptureSession::EndWhatBegan(std::uint32_t starts) {
  if (starts_ == starts) return;
  // A start in a pump would run on behind a program that takes itself for stopped.
  ShowIndicators(false);
  aPacketX().Stop();
}

}  // namespace packetroutines
