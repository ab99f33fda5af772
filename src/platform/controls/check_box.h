#pragma once

#include <cstdint>
#include <string>

#include "platform/controls/control.h"

namespace platform {

/// A check box: 0 is off, 1 is on. `Click` comes when `Value` really changes, by hand or from code.
class CheckBox : public Control {
 public:
  Property<std::string> Caption;
  Property<std::int16_t> Value;
  Property<Rgb> ForeColor;
  Event<> Click;

  CheckBox() {
    Value.OnAssign([this](std::int16_t value) {
      if (value == Value.Get()) return;
      Value.Store(value);
      Click();
    });
  }
};

}  // namespace platform
