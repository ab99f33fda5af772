#pragma once

#include <array>

#include "platform/controls/buttons.h"
#include "platform/controls/label.h"

namespace forms {

/// The controls of the Report view: row i is the title `Label7[i]` and the value `Label8[i]`.
struct ReportControls {
  ReportControls();

  platform::CWButton Command2;
  platform::CommandButton Command4;
  /// Heading of the station choice.
  platform::Label sevLabel4;
  std::array<platform::Label, 23> Label7;
  std::array<platform::Label, 23> Label8;
};

}  // namespace forms
