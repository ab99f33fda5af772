#pragma once

#include "platform/services/mouse_pointer.h"
#include "support/journal.h"

namespace support {

/// A mouse pointer whose changes are written down.
class FakePointer : public platform::MousePointer {
 public:
  explicit FakePointer(Journal& journal) : journal_(journal) {}

  void ShowHourglass() override { Show(true); }
  void ShowNormal() override { Show(false); }

  bool Hourglass = false;

 private:
  void Show(bool hourglass) {
    journal_.push_back(hourglass ? "hourglass" : "normal pointer");
    Hourglass = hourglass;
  }

  Journal& journal_;
};

}  // namespace support
