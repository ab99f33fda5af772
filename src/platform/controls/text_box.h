#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "platform/controls/control.h"

namespace platform {

/// A field for text. `Change` comes at every keystroke and at every assignment of `Text`, equal or
/// not.
class TextBox : public Control {
 public:
  Property<std::string> Text;
  /// The most characters that a user can type; 0 is no limit. Assignments from code are not cut.
  Property<std::int32_t> MaxLength;
  Event<> Change;
  Event<> DblClick;
  /// The program gives the field the keyboard focus.
  Event<> SetFocus;

  TextBox() {
    Text.OnAssign([this](std::string text) {
      Text.Store(std::move(text));
      Change();
    });
  }
};

}  // namespace platform
