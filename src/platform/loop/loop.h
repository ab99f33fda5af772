#pragma once

#include <vector>

#include "platform/clock.h"
#include "platform/loop/alarm.h"
#include "platform/loop/frame_turns.h"
#include "platform/loop/guard.h"
#include "platform/loop/holdable.h"
#include "platform/loop/timer_queue.h"
#include "platform/loop/timer_turns.h"
#include "platform/services/capture_object.h"

namespace platform {

/// What drives the program: its timers and its frames, which go by the clock, come in through the
/// guard, and stand still while a box stands. Whoever runs the thread only lets the alarms ring.
class Loop {
 public:
  struct Drive {
    const platform::Clock& Clock;
    FrameDelivery& Frames;
    platform::Guard& Guard;
    Alarm& ForTimers;
    Alarm& ForFrames;
  };

  explicit Loop(const Drive& drive);

  /// Lets something of the face stand still with the rest, behind it.
  void AlsoHold(Holdable& holdable) { held_.push_back(&holdable); }
  /// A box comes (True) or goes.
  void BoxStands(bool stands);

  TimerQueue Timers;

 private:
  TimerTurns timerTurns_;
  FrameTurns frameTurns_;
  std::vector<Holdable*> held_;
};

}  // namespace platform
