#include "platform/controls/timer.h"

#include <algorithm>
#include <utility>

namespace platform {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;

Timer::Timer(TimerQueue& queue) : queue_(queue) {
  Interval.OnAssign([this](std::int32_t interval) {
    Interval.Store(interval);
    StartCount();
  });
  Enabled.OnAssign([this](bool enabled) {
    if (enabled == Enabled.Get()) return;
    Enabled.Store(enabled);
    StartCount();
  });
  queue_.Add(*this);
}

Timer::~Timer() {
  queue_.Remove(*this);
}

void Timer::StartCount() {
  due_.reset();
  if (Enabled && Interval > 0) due_ = queue_.Now() + milliseconds(Interval.Get());
  queue_.Announce();
}

nanoseconds TimerQueue::Now() const {
  return (holds_ > 0 ? heldSince_ : clock_.Now()) - held_;
}

void TimerQueue::Hold() {
  if (holds_++ > 0) return;
  heldSince_ = clock_.Now();
  Announce();
}

void TimerQueue::Release() {
  if (--holds_ > 0) return;
  held_ += clock_.Now() - heldSince_;
  Announce();
}

std::optional<nanoseconds> TimerQueue::NextDue() const {
  if (holds_ > 0) return std::nullopt;
  std::optional<nanoseconds> next;
  for (const Timer* timer : timers_) {
    if (timer->due_ && !timer->handling_ && (!next || *timer->due_ < *next)) next = timer->due_;
  }
  if (next) *next += held_;
  return next;
}

Timer* TimerQueue::EarliestDue(nanoseconds now) const {
  Timer* earliest = nullptr;
  for (Timer* timer : timers_) {
    if (!timer->due_ || timer->handling_ || *timer->due_ > now) continue;
    if (earliest == nullptr || *timer->due_ < *earliest->due_) earliest = timer;
  }
  return earliest;
}

void TimerQueue::FireDue() {
  if (holds_ > 0) return;
  const nanoseconds now = Now();
  // A timer that fires is due again after `now`, so this loop ends even where handlers take long.
  while (Timer* timer = EarliestDue(now)) {
    const milliseconds interval(timer->Interval.Get());
    // Periods that passed while the thread was busy are not made up for.
    timer->due_ = *timer->due_ + interval > now ? *timer->due_ + interval : now + interval;
    timer->handling_ = true;
    try {
      timer->Elapsed();
    } catch (...) {
      timer->handling_ = false;
      throw;
    }
    timer->handling_ = false;
  }
  Announce();
}

void TimerQueue::Add(Timer& timer) {
  timers_.push_back(&timer);
}

void TimerQueue::Remove(Timer& timer) {
  std::erase(timers_, &timer);
}

void TimerQueue::Announce() const {
  if (Rescheduled) Rescheduled();
}

}  // namespace platform
