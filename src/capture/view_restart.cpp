#include "capture/view_restart.h"

#include <algorithm>
#include <cstdint>

namespace packetroutines {

ViewRestart::ViewRestart(const RunFields& state, RunControl& run, const config::Settings& settings,
                         forms::TimerControls& timers, const forms::RunButtons& buttons,
                         CaptureSession& capture, platform::EventQueue& events)
    : state_(state),
      run_(run),
      settings_(settings),
      buttons_(buttons),
      capture_(capture),
      events_(events) {
  timers.Timer2.Elapsed = [this] { Timer2_Timer(); };
}

void ViewRestart::Timer2_Timer() {
  run_.CallOffRestart();
  if (ViewEnded()) return;
  for (const ModeName name : RestartOrder) Restart(name);
}

bool ViewRestart::ViewEnded() const {
  return AnyModeSet(state_, [this](const Mode& mode) { return Released(mode); });
}

bool ViewRestart::Released(const Mode& mode) const {
  return IsLiveView(mode) && !mode.RunButton(buttons_).Value;
}

void ViewRestart::Restart(ModeName name) {
  const Mode& mode = *name.Find();
  // Asked mode by mode: a pump of the one before may have ended this one.
  if (!(state_.*mode.Flag) || state_.Leaving > 0) return;
  const PageVisit visit(state_);
  // A delay below 0 is none.
  events_.WaitMs(std::max<std::int16_t>(settings_.InternalDelay, 0));
  if (mode.Restart == Restarts::BehindPump) events_.Pump();
  if (visit.Over()) return;
  capture_.StartCapture(name);
  if (state_.*mode.Flag && Released(mode)) End(name);
}

void ViewRestart::End(ModeName name) {
  // STOP came in with the pump, before the start, which has set the mode again. The view's own stop
  // is over by now, and nobody else would end this burst.
  run_.CallOffWatchdog();
  capture_.EndRun(name);
}

}  // namespace packetroutines
