#pragma once

#include <QTimer>

#include "platform/loop/alarm.h"

namespace desktop {

/// An alarm that the window's thread hears between its other events.
class QtAlarm : public platform::Alarm {
 public:
  QtAlarm();

  void Set(std::chrono::milliseconds fromNow) override { timer_.start(fromNow); }
  void Stop() override { timer_.stop(); }

 private:
  QTimer timer_;
};

}  // namespace desktop
