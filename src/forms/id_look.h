#pragma once

#include "platform/controls/buttons.h"
#include "platform/controls/check_list.h"
#include "platform/controls/label.h"
#include "platform/controls/timer.h"
#include "platform/controls/window.h"

namespace forms {

/// The window of the stream finder.
class IDlook {
 public:
  explicit IDlook(platform::TimerCount& timers) : Timer1(timers) {
    Window.Caption = "Find streams";
    Frame1.Caption = "IEC 61850.9.2LE (SV) sender on the bus";
    List1.ToolTipText = "List of all senders still found sending";
    Label1.Caption = "Wait until as minimum one stream is found. Mark it as relevant.";
    Command1.Caption = "&OK";
  }

  platform::Window Window;
  platform::GroupBox Frame1;
  /// The senders in the order of their first frames.
  platform::CheckList List1;
  platform::Label Label1;
  /// How many frames were looked at.
  platform::Label FrameCount;
  platform::CommandButton Command1;
  /// Begins the search a moment after the window came up.
  platform::Timer Timer1;
};

}  // namespace forms
