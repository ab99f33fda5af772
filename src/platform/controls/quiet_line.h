#pragma once

#include <string>

#include "platform/controls/label.h"

namespace platform {

/// A line on a view that gives the reason where nothing else happens there. It is not there while
/// it has nothing to say.
class QuietLine : public Label {
 public:
  QuietLine() { Visible = false; }

  void Say(const std::string& text) {
    Caption = text;
    Visible = !text.empty();
  }
};

}  // namespace platform
