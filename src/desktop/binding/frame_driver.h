#pragma once

#include <QTimer>

#include "desktop/binding/guard.h"
#include "platform/services/capture_object.h"

namespace desktop {

/// Brings the frames that are due to the program while capture runs, in short turns between the
/// window's events. A handler that pumps gets further frames inside of it.
class FrameDriver {
 public:
  FrameDriver(platform::FrameDelivery& frames, Guard& guard);
  FrameDriver(const FrameDriver&) = delete;
  FrameDriver& operator=(const FrameDriver&) = delete;
  ~FrameDriver();

  /// Lets the frames wait at their source until the release, also for a handler that pumps. Holds
  /// nest.
  void Hold();
  void Release();

 private:
  bool Delivering() const { return running_ && holds_ == 0; }
  void Poll();
  void SetRunning(bool running);
  void Turn();
  void Deliver();

  platform::FrameDelivery& frames_;
  Guard& guard_;
  QTimer poll_;
  bool running_ = false;
  int holds_ = 0;
  /// Turns that are under way, one inside the other.
  int depth_ = 0;
};

}  // namespace desktop
