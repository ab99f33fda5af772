#include "recorder/events/events_file.h"

#include <algorithm>

#include "base/failure.h"

namespace packetroutines {

namespace {

/// More events than a night without a disk has; what comes behind is counted.
constexpr std::size_t MostWaiting = 1U << 20U;

}  // namespace

void EventsFile::Begin(const std::string& path) {
  path_ = path;
  waiting_.clear();
  carried_ = 0;
  leftOut_ = 0;
  written_ = false;
}

void EventsFile::GoOn(const std::string& path) {
  path_ = path;
  carried_ = waiting_.size();
  written_ = false;
}

void EventsFile::LeaveOut() {
  waiting_.resize(std::min(carried_, waiting_.size()));
}

void EventsFile::Add(const RecordEvent& event) {
  if (waiting_.size() >= MostWaiting) {
    ++leftOut_;
    return;
  }
  if (leftOut_ > 0) {
    const RecordEvent gap{.At = event.At, .What = "events left out", .Count = leftOut_};
    leftOut_ = 0;
    waiting_ += EventLine(gap, calendar_);
  }
  waiting_ += EventLine(event, calendar_);
}

bool EventsFile::Write() {
  if (waiting_.empty()) return false;
  // A file that has gone, with its folder perhaps, is begun anew.
  const std::int64_t before = files_.FileSize(path_);
  std::string text = before > 0 ? waiting_ : EventHeading() + waiting_;
  try {
    const auto file = files_.Append(path_);
    file->Write(text);
    file->Close();
  } catch (const platform::Failure&) {
    // What a disk has taken before it was full stays; the next time goes on behind it.
    const std::int64_t stored = files_.FileSize(path_) - before;
    if (stored > 0) {
      text.erase(0, static_cast<std::size_t>(stored));
      waiting_ = text;
    }
    return false;
  }
  waiting_.clear();
  carried_ = 0;
  written_ = true;
  return true;
}

}  // namespace packetroutines
