#include "capture/acquisition.h"

#include <cstdint>

#include "base/trap.h"
#include "platform/stream_format.h"

namespace packetroutines {

Acquisition::Acquisition(forms::Main& main, config::Configuration& config,
                         const AcquisitionServices& services)
    : Retry(services.Usual.Dialogs, Upper),
      Run(State, main),
      Capture(services.Capture, {.Setup = main, .Shared = main, .Buttons = main.Buttons()},
              config.Settings, config.Present, State, Run, services.Usual),
      Locator(State, Retry, services.Usual.Program),
      Builder(State, Block, Rings, config.Present, main, services.Numbers, Retry,
              services.Usual.Program),
      Watch(State, config.Settings, services.Timers.UsedClock()),
      Waiting(State, config.Settings, config.Present, main, main.Buttons(), Capture, Watch,
              services.Timers, services.Numbers),
      Packets(State, config.Settings, config.Present, {.Recorder = main, .Report = main},
              {.Run = Run,
               .Capture = Capture,
               .Locator = Locator,
               .Builder = Builder,
               .Retry = Retry,
               .Waiting = Waiting,
               .Watch = Watch},
              Upper, {.Numbers = services.Numbers, .Code = services.Code}, services.Usual),
      Watchdog(State, Run, main, main.Buttons(), Capture, Upper, services.Usual),
      Restart(State, Run, config.Settings, main, main.Buttons(), Capture, services.Usual.Events),
      Release(Run, main, main.Buttons()),
      buttons_(main.Buttons()),
      settings_(config.Settings),
      program_(services.Usual.Program) {
  Capture.Packets = Packets;
  Capture.User = static_cast<CaptureUser&>(*this);
  config.View.Blocks = static_cast<config::BlockUser&>(*this);
}

void Acquisition::ReserveMemory() {
  const double seconds = static_cast<double>(settings_.BeforeTriggerWaveTime) +
                         static_cast<double>(settings_.AfterTriggerWaveTime);
  Rings.Reserve(platform::Round<std::int32_t>(seconds * platform::SamplesASecond));
}

void Acquisition::SetFlags() {
  Run.MeasureLength();
  State.RealTimeChannel = 1;
}

void Acquisition::End() {
  // The program may already be leaving a view; what its pumps bring must start nothing here either.
  Run.Leave();
  platform::RunSteps(
      program_, [](const platform::Failure&) { return platform::Verdict::SkipStep; },
      [this] { Capture.StopCapture(); }, [this] { Run.ClearModes(); });
}

void Acquisition::StationChosen() {
  // A mode without its button is left over from a run that got no data.
  const bool running = State.CaptureRunning || AnyModeSet(State, [this](const Mode& mode) {
                         return IsLiveView(mode) && mode.RunButton(buttons_).Value;
                       });
  if (!running) return;
  // The other station has its samples elsewhere in its frames, and may have fewer of them: where
  // they cannot be located it reads as silent, and nothing of the block that the old one began may
  // stay in it.
  Locator.Forget();
  Run.StationChosen();
  Block.Rebuild(Block.SignalValues.Rows());
}

void Acquisition::CaptureStopped() {
  Waiting.CaptureStopped();
  Upper.Finder->CaptureStopped();
}

void Acquisition::ReportEnded() {
  Upper.Report->ReportEnded();
}

void Acquisition::CaptureRefused() {
  Upper.Finder->CaptureRefused();
}

}  // namespace packetroutines
