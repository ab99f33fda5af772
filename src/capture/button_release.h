#pragma once

#include <cstdint>

#include "capture/modes.h"
#include "capture/run_control.h"
#include "forms/run_buttons.h"
#include "forms/window_controls.h"

namespace packetroutines {

/// `Timer3`: gives the run buttons of the live views back, a second after a start or a stop.
class ButtonRelease {
 public:
  ButtonRelease(RunControl& run, forms::TimerControls& timers, const forms::RunButtons& buttons)
      : run_(run), buttons_(buttons) {
    timers.Timer3.Elapsed = [this] { Timer3_Timer(); };
  }

  /// Nothing is locked at the start.
  void Load() { run_.LoadRelease(ButtonLock); }

 private:
  /// The run buttons come back this long after the first frame or a stop, in ms.
  static constexpr std::int32_t ButtonLock = 1000;

  void Timer3_Timer() {
    for (const ModeName view : ReleaseOrder) view.Find()->RunButton(buttons_).Enabled = true;
    run_.CallOffRelease();
    buttons_.ShowIdleTips();
  }

  RunControl& run_;
  forms::RunButtons buttons_;
};

}  // namespace packetroutines
