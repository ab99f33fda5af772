#pragma once

#include <cstdint>

#include "forms/run_buttons.h"
#include "forms/window_controls.h"

namespace packetroutines {

/// `Timer3`: gives the run buttons of the live views back, a second after a start or a stop.
class ButtonRelease {
 public:
  ButtonRelease(forms::TimerControls& timers, const forms::RunButtons& buttons)
      : timers_(timers), buttons_(buttons) {
    timers_.Timer3.Elapsed = [this] { Timer3_Timer(); };
  }

  /// Nothing is locked at the start.
  void Load() {
    timers_.Timer3.Enabled = false;
    timers_.Timer3.Interval = ButtonLock;
  }

 private:
  /// The run buttons come back this long after the first frame or a stop, in ms.
  static constexpr std::int32_t ButtonLock = 1000;

  void Timer3_Timer() {
    buttons_.CWButton2.Enabled = true;
    buttons_.CWButton4.Enabled = true;
    buttons_.CWButton1.Enabled = true;
    timers_.Timer3.Enabled = false;
    buttons_.ShowIdleTips();
  }

  forms::TimerControls& timers_;
  forms::RunButtons buttons_;
};

}  // namespace packetroutines
