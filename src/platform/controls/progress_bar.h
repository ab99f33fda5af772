#pragma once

#include <cstdint>

#include "platform/controls/control.h"

namespace platform {

/// A bar that fills while the program works without looking at its events. It is not there while
/// nothing is under way.
class ProgressBar : public Control {
 public:
  ProgressBar() { Visible = false; }

  /// 0 to 100.
  Property<std::int16_t> Value;
  /// Paints the bar at once; no event is handled by that.
  Event<> Repaint;
};

}  // namespace platform
