#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

#include "platform/clock.h"
#include "platform/loop/alarm.h"
#include "platform/loop/guard.h"
#include "platform/services/event_queue.h"

namespace platform {

class QueueAlarm;

/// The event queue of a program without a window: alarms are all that comes, and the thread sleeps
/// in between.
class WaitingQueue : public EventQueue {
 public:
  /// Blocks the thread for a while. It may come back earlier, such as for a signal.
  using Wait = std::function<void(std::chrono::nanoseconds)>;

  WaitingQueue(const Clock& clock, Guard& guard, Wait wait);

  /// Lets the alarms ring that are due.
  void Pump() override;
  void WaitMs(std::int32_t ms) override;
  /// Handles what comes until the condition holds or the program has ended.
  void RunUntil(const std::function<bool()>& done);

 private:
  friend class QueueAlarm;
  void Ring();
  void Sleep();

  const Clock& clock_;
  Guard& guard_;
  Wait wait_;
  std::vector<QueueAlarm*> alarms_;
};

/// An alarm of such a queue, which it may not outlive.
class QueueAlarm : public Alarm {
 public:
  explicit QueueAlarm(WaitingQueue& queue);
  QueueAlarm(const QueueAlarm&) = delete;
  QueueAlarm& operator=(const QueueAlarm&) = delete;
  ~QueueAlarm() override;

  void Set(std::chrono::milliseconds fromNow) override;
  void Stop() override { due_.reset(); }

 private:
  friend class WaitingQueue;

  WaitingQueue& queue_;
  std::optional<std::chrono::nanoseconds> due_;
};

}  // namespace platform
