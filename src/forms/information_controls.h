#pragma once

#include <array>

#include "platform/controls/label.h"

namespace forms {

/// The controls of the information page; the support address stands in `SharedControls`.
struct InformationControls {
  InformationControls() {
    Label4.Caption = "Revisionhistory";
    Label4.ToolTipText = "shows the history of the program";
  }

  std::array<platform::Label, 20> Label1;
  /// Opens the revision history.
  platform::Label Label4;
  platform::PictureBox Picture4;
};

}  // namespace forms
