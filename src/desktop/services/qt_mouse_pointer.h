#pragma once

#include "platform/services/mouse_pointer.h"

namespace desktop {

/// The mouse pointer over the windows of the program.
class QtMousePointer : public platform::MousePointer {
 public:
  void ShowHourglass() override;
  void ShowNormal() override;

 private:
  bool hourglass_ = false;
};

}  // namespace desktop
