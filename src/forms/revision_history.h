#pragma once

#include "platform/controls/buttons.h"
#include "platform/controls/text_box.h"
#include "platform/controls/window.h"

namespace forms {

/// The window that shows the revision history, scrollable and read-only.
class Revisionhistory {
 public:
  Revisionhistory() {
    Window.Caption = "Revisionhistory";
    cmdOK.Caption = "&OK";
  }

  platform::Window Window;
  platform::TextBox Text1;
  platform::CommandButton cmdOK;
};

}  // namespace forms
