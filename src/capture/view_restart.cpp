#include "capture/view_restart.h"

#include <algorithm>
#include <cstdint>

namespace packetroutines {

ViewRestart::ViewRestart(const AcquisitionState& state, const config::Settings& settings,
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
  Restart(&AcquisitionState::LookingForValues, "LookingForValues", true);
  Restart(&AcquisitionState::LookingForPhases, "LookingForPhases", true);
  Restart(&AcquisitionState::LookingForScope, "LookingForScope", false);
  Restart(&AcquisitionState::LookingForID, "LookingForID", true);
}

bool ViewRestart::ViewEnded() const {
  return AnyModeSet(state_, [this](const Mode& mode) {
    return IsLiveView(mode) && !mode.RunButton(buttons_).Value;
  });
}

void ViewRestart::Restart(bool AcquisitionState::*flag, ModeName mode, bool pump) {
  // Asked mode by mode: a pump of the one before may have ended this one.
  if (!(state_.*flag) || state_.Leaving > 0) return;
  const std::uint32_t tabChanges = state_.TabChanges;
  // A delay below 0 is none.
  events_.WaitMs(std::max<std::int16_t>(settings_.InternalDelay, 0));
  if (pump) events_.Pump();
  if (state_.TabChanges == tabChanges) capture_.StartCapture(mode);
}

}  // namespace packetroutines
