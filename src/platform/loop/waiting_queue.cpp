#include "platform/loop/waiting_queue.h"

#include <algorithm>
#include <utility>

namespace platform {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;

namespace {

/// The longest sleep; what is waited for may come from where no alarm rings.
constexpr milliseconds LongestSleep{50};

}  // namespace

WaitingQueue::WaitingQueue(const Clock& clock, Guard& guard, Wait wait)
    : clock_(clock), guard_(guard), wait_(std::move(wait)) {}

void WaitingQueue::Pump() {
  Ring();
  guard_.LeaveIfClosed();
}

void WaitingQueue::WaitMs(std::int32_t ms) {
  if (ms > 0) wait_(milliseconds(ms));
}

void WaitingQueue::RunUntil(const std::function<bool()>& done) {
  while (!guard_.Closed() && !done()) {
    Sleep();
    Ring();
  }
}

void WaitingQueue::Ring() {
  const nanoseconds now = clock_.Now();
  // What an alarm brings may set others, or take them away: each rings once at most, and only what
  // was due when the round began.
  const std::vector<QueueAlarm*> round = alarms_;
  for (QueueAlarm* alarm : round) {
    const bool there = std::find(alarms_.begin(), alarms_.end(), alarm) != alarms_.end();
    if (!there || !alarm->due_ || *alarm->due_ > now) continue;
    alarm->due_.reset();
    if (alarm->Rings) alarm->Rings();
  }
}

void WaitingQueue::Sleep() {
  const nanoseconds now = clock_.Now();
  nanoseconds longest = LongestSleep;
  for (const QueueAlarm* alarm : alarms_) {
    if (alarm->due_) longest = std::min(longest, std::max(*alarm->due_ - now, nanoseconds(0)));
  }
  if (longest > nanoseconds(0)) wait_(longest);
}

QueueAlarm::QueueAlarm(WaitingQueue& queue) : queue_(queue) {
  queue_.alarms_.push_back(this);
}

QueueAlarm::~QueueAlarm() {
  std::erase(queue_.alarms_, this);
}

void QueueAlarm::Set(milliseconds fromNow) {
  due_ = queue_.clock_.Now() + fromNow;
}

}  // namespace platform
