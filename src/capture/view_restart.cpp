#include "capture/view_restart.h"

#include <algorithm>
#include <cstdint>

namespace packetroutines {

ViewRestart::ViewRestart(AcquisitionState& state, const config::Settings& settings,
                         forms::TimerControls& timers, const forms::RunButtons& buttons,
                         CaptureSession& capture, platform::EventQueue& events)
    : state_(state),
      settings_(settings),
      timers_(timers),
      buttons_(buttons),
      capture_(capture),
      events_(events) {
  timers_.Timer2.Elapsed = [this] { Timer2_Timer(); };
}

void ViewRestart::Timer2_Timer() {
  timers_.Timer2.Enabled = false;
  if (ViewEnded()) return;
  // The scope alone takes no event between its wait and its start.
  Restart("LookingForValues", true);
  Restart("LookingForPhases", true);
  Restart("LookingForScope", false);
  Restart("LookingForID", true);
}

bool ViewRestart::ViewEnded() const {
  return AnyModeSet(state_, [this](const Mode& mode) { return Released(mode); });
}

bool ViewRestart::Released(const Mode& mode) const {
  return IsLiveView(mode) && !mode.RunButton(buttons_).Value;
}

void ViewRestart::Restart(ModeName name, bool pump) {
  const Mode& mode = *FindMode(name.Text());
  // Asked mode by mode: a pump of the one before may have ended this one.
  if (!(state_.*mode.Flag) || state_.Leaving > 0) return;
  const std::uint32_t tabChanges = state_.TabChanges;
  // A delay below 0 is none.
  events_.WaitMs(std::max<std::int16_t>(settings_.InternalDelay, 0));
  if (pump) events_.Pump();
  if (state_.TabChanges != tabChanges) return;
  capture_.StartCapture(name);
  if (state_.*mode.Flag && Released(mode)) End(mode);
}

void ViewRestart::End(const Mode& mode) {
  // STOP came in with the pump, before the start, which has set the mode again. The view's own stop
  // is over by now, and nobody else would end this burst.
  state_.*mode.Flag = false;
  timers_.Timer1.Enabled = false;
  capture_.StopCapture();
}

}  // namespace packetroutines
