#pragma once

#include <array>
#include <string>

#include "platform/controls/control.h"

namespace platform {

/// One panel of the status bar.
struct Panel {
  std::string Key;
  Property<std::string> ToolTipText;
  Property<std::string> Text;
};

/// The bar of four panels at the foot of the window.
class StatusBar : public Control {
 public:
  std::array<Panel, 4> Panels;
};

}  // namespace platform
