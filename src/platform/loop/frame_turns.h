#pragma once

#include "platform/clock.h"
#include "platform/loop/alarm.h"
#include "platform/loop/guard.h"
#include "platform/loop/holdable.h"
#include "platform/services/capture_object.h"

namespace platform {

/// Brings the frames that are due to the program while capture runs, in short turns between the
/// other events. A handler that pumps gets further frames inside of it.
class FrameTurns : public Holdable {
 public:
  FrameTurns(FrameDelivery& frames, const Clock& clock, Guard& guard, Alarm& alarm);
  FrameTurns(const FrameTurns&) = delete;
  FrameTurns& operator=(const FrameTurns&) = delete;
  ~FrameTurns();

  /// Lets the frames wait at their source until the release, also for a handler that pumps.
  void Hold() override;
  void Release() override;

 private:
  bool Delivering() const { return running_ && holds_ == 0; }
  void Poll();
  void SetRunning(bool running);
  void Turn();
  void Deliver();

  FrameDelivery& frames_;
  const Clock& clock_;
  Guard& guard_;
  Alarm& alarm_;
  bool running_ = false;
  int holds_ = 0;
  /// Turns that are under way, one inside the other.
  int depth_ = 0;
};

}  // namespace platform
