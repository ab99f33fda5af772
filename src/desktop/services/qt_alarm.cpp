#include "desktop/services/qt_alarm.h"

namespace desktop {

QtAlarm::QtAlarm() {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
    if (Rings) Rings();
  });
}

}  // namespace desktop
