#pragma once

namespace platform {

/// The picture of the mouse pointer over the whole program.
class MousePointer {
 public:
  virtual ~MousePointer() = default;
  /// The hourglass; showing it again changes nothing.
  virtual void ShowHourglass() = 0;
  /// The pointer that each control gives itself.
  virtual void ShowNormal() = 0;
};

}  // namespace platform
