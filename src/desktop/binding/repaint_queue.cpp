#include "desktop/binding/repaint_queue.h"

#include <utility>

namespace desktop {

namespace {

/// One frame of a usual screen.
constexpr int FrameMs = 16;

}  // namespace

RepaintQueue::RepaintQueue() {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Flush(); });
}

std::size_t RepaintQueue::Add(std::function<void()> update) {
  entries_.push_back({std::move(update)});
  return entries_.size() - 1;
}

void RepaintQueue::Mark(std::size_t entry) {
  if (entries_[entry].Marked) return;
  entries_[entry].Marked = true;
  marked_.push_back(entry);
  if (!timer_.isActive()) timer_.start(FrameMs);
}

void RepaintQueue::Flush() {
  timer_.stop();
  for (const std::size_t entry : std::exchange(marked_, {})) {
    entries_[entry].Marked = false;
    entries_[entry].Update();
  }
}

}  // namespace desktop
