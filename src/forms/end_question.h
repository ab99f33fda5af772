#pragma once

#include "platform/controls/buttons.h"
#include "platform/controls/label.h"
#include "platform/controls/timer.h"
#include "platform/controls/window.h"

namespace forms {

/// The window that asks before a recording is ended by what was chosen elsewhere. The recording
/// goes on below it.
class EndQuestion {
 public:
  explicit EndQuestion(platform::TimerCount& timers) : CountDown(timers) {
    Window.Caption = "Recording";
    Keep.Caption = "&Keep recording";
    Keep.ToolTipText = "The recording goes on, and this page stays";
    End.Caption = "&End recording";
    End.ToolTipText = "Ends the recording without a log, and does what was chosen";
  }

  platform::Window Window;
  platform::Label Question;
  /// How long an answer is awaited.
  platform::Label Remaining;
  platform::CommandButton Keep;
  platform::CommandButton End;
  platform::Timer CountDown;
};

}  // namespace forms
