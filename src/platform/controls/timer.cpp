#include "platform/controls/timer.h"

#include "base/raised.h"

namespace platform {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;

Timer::Timer(TimerCount& count) : count_(count) {
  Interval.OnAssign([this](std::int32_t interval) {
    Interval.Store(interval);
    StartCount();
  });
  Enabled.OnAssign([this](bool enabled) {
    if (enabled == Enabled.Get()) return;
    Enabled.Store(enabled);
    StartCount();
  });
  count_.Add(*this);
}

Timer::~Timer() {
  count_.Remove(*this);
}

void Timer::StartCount() {
  due_.reset();
  if (Enabled && Interval > 0) due_ = count_.Now() + milliseconds(Interval.Get());
  count_.Reschedule();
}

std::optional<nanoseconds> Timer::Due() const {
  return handling_ ? std::nullopt : due_;
}

void Timer::Fire(nanoseconds now) {
  const milliseconds interval(Interval.Get());
  // Periods that passed while the thread was busy are not made up for.
  due_ = *due_ + interval > now ? *due_ + interval : now + interval;
  const Raised handling(handling_);
  Elapsed();
}

}  // namespace platform
