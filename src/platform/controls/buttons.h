#pragma once

#include <cstdint>
#include <string>

#include "platform/controls/control.h"

namespace platform {

class CommandButton : public Control {
 public:
  Property<std::string> Caption;
  Event<> Click;
  /// A press of the mouse button of that number, one of `mouse_button`.
  Event<std::int16_t> MouseDown;
};

/// A two-position button; `ValueChanged` comes when `Value` really changes, by hand or from code.
class CWButton : public Control {
 public:
  Property<bool> Value;
  /// The faces of the two positions.
  Property<std::string> OffText{"RUN"};
  Property<std::string> OnText{"STOP"};
  Property<Rgb> BackColor{Rgb{255, 255, 255}};
  Event<> ValueChanged;

  CWButton() {
    Value.OnAssign([this](bool value) {
      if (value == Value.Get()) return;
      Value.Store(value);
      ValueChanged();
    });
  }
};

}  // namespace platform
