#include "platform/loop/loop.h"

namespace platform {

Loop::Loop(const Drive& drive)
    : Timers(drive.Clock),
      timerTurns_(Timers, drive.Clock, drive.Guard, drive.ForTimers),
      frameTurns_(drive.Frames, drive.Clock, drive.Guard, drive.ForFrames),
      held_{&Timers, &frameTurns_} {}

void Loop::BoxStands(bool stands) {
  for (Holdable* holdable : held_) {
    if (stands) {
      holdable->Hold();
    } else {
      holdable->Release();
    }
  }
}

}  // namespace platform
