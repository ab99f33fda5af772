#pragma once

#include "platform/controls/text_box.h"
#include "platform/controls/window.h"

namespace forms {

/// A text area for a developer's own traces. A double click empties it; nothing opens the window.
class DebugWindow {
 public:
  DebugWindow() {
    Window.Caption = "DebugWindow";
    Text1.DblClick = [this] { Text1.Text = std::string(); };
  }

  platform::Window Window;
  platform::TextBox Text1;
};

}  // namespace forms
