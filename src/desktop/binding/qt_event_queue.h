#pragma once

#include <cstdint>

#include "desktop/binding/repaint_queue.h"
#include "platform/loop/guard.h"
#include "platform/services/event_queue.h"

namespace desktop {

/// The event queue of the window's thread.
class QtEventQueue : public platform::EventQueue {
 public:
  QtEventQueue(RepaintQueue& repaints, platform::Guard& guard);

  void Pump() override;
  void WaitMs(std::int32_t ms) override;

 private:
  RepaintQueue& repaints_;
  platform::Guard& guard_;
};

}  // namespace desktop
