#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "platform/controls/control.h"

namespace platform {

/// One of a group of exclusive choices. `Click` comes when it gets selected; the others of its
/// group fall silently.
class OptionButton : public Control {
 public:
  Property<std::string> Caption;
  Property<bool> Value;
  Event<> Click;

  OptionButton() {
    Value.OnAssign([this](bool value) {
      if (value == Value.Get()) return;
      Value.Store(value);
      if (!value) return;
      for (OptionButton* neighbour : neighbours_) neighbour->Value.Store(false);
      Click();
    });
  }

  /// Makes the options exclude each other.
  static void Group(std::initializer_list<OptionButton*> options) {
    for (OptionButton* option : options) {
      for (OptionButton* other : options) {
        if (other != option) option->neighbours_.push_back(other);
      }
    }
  }

 private:
  std::vector<OptionButton*> neighbours_;
};

}  // namespace platform
