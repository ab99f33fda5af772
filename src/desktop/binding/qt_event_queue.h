#pragma once

#include <cstdint>

#include "desktop/binding/guard.h"
#include "desktop/binding/repaint_queue.h"
#include "platform/services/event_queue.h"

namespace desktop {

/// The event queue of the window's thread.
class QtEventQueue : public platform::EventQueue {
 public:
  QtEventQueue(RepaintQueue& repaints, Guard& guard);

  void Pump() override;
  void WaitMs(std::int32_t ms) override;

 private:
  RepaintQueue& repaints_;
  Guard& guard_;
};

}  // namespace desktop
