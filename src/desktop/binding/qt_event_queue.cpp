#include "desktop/binding/qt_event_queue.h"

#include <QCoreApplication>
#include <chrono>
#include <thread>

namespace desktop {

QtEventQueue::QtEventQueue(RepaintQueue& repaints, platform::Guard& guard)
    : repaints_(repaints), guard_(guard) {}

void QtEventQueue::Pump() {
  repaints_.Flush();
  QCoreApplication::processEvents();
  guard_.LeaveIfClosed();
}

void QtEventQueue::WaitMs(std::int32_t ms) {
  if (ms > 0) std::this_thread::sleep_for(std::chrono::milliseconds(ms));
}

}  // namespace desktop
