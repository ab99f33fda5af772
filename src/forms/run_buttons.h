#pragma once

#include "platform/controls/buttons.h"

namespace forms {

/// The run buttons of all views, for those who start, stop and lock them whatever the view is.
struct RunButtons {
  platform::CWButton& CWButton1;
  platform::CWButton& CWButton2;
  platform::CWButton& CWButton3;
  platform::CWButton& CWButton4;
  platform::CWButton& Command2;

  /// Gives the buttons of Values and Phasor that are off the tip of an idle button, where they
  /// still wear the one of a running view.
  void ShowIdleTips() const;
};

}  // namespace forms
