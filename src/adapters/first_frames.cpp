#include "adapters/first_frames.h"

#include <algorithm>
#include <utility>

namespace adapters {

namespace {

/// Eighty frames of each usual stream: enough to hear them all, too short to be noticed.
constexpr std::chrono::milliseconds GatheringTime{20};
constexpr std::size_t MostGathered = 256;

}  // namespace

FirstFrames::FirstFrames(std::unique_ptr<FrameSource> source, const platform::Clock& clock)
    : source_(std::move(source)), clock_(clock) {}

void FirstFrames::Prepare(const SourceSettings& settings) {
  Drop();
  fresh_ = true;
  source_->Prepare(settings);
}

void FirstFrames::Start() {
  source_->Start();
  if (fresh_ && !end_) end_ = clock_.Now() + GatheringTime;
}

void FirstFrames::Stop() {
  Drop();
  source_->Stop();
}

void FirstFrames::Release() {
  Drop();
  source_->Release();
}

void FirstFrames::Drop() {
  end_.reset();
  gathered_.clear();
  next_ = 0;
}

std::optional<platform::CapturedFrame> FirstFrames::Next() {
  if (end_) {
    if (!Gather()) return std::nullopt;
    PutInOrder();
    end_.reset();
    fresh_ = false;
  }
  if (next_ == gathered_.size()) return source_->Next();
  const GatheredFrame& frame = gathered_[next_++];
  return platform::CapturedFrame{frame.Bytes, frame.Length};
}

bool FirstFrames::Gather() {
  const bool timeIsOver = clock_.Now() >= *end_;
  while (gathered_.size() < MostGathered) {
    const std::optional<platform::CapturedFrame> frame = source_->Next();
    if (!frame) break;
    gathered_.push_back({{frame->Bytes.begin(), frame->Bytes.end()}, frame->Length});
  }
  // A bus that was silent so far is listened to until its first frames are there.
  if (timeIsOver) return !gathered_.empty();
  return gathered_.size() == MostGathered;
}

void FirstFrames::PutInOrder() {
  BringLongestTo(0);
  if (twoOfTheLongest_) BringLongestTo(1);
  twoOfTheLongest_ = !twoOfTheLongest_;
}

void FirstFrames::BringLongestTo(std::size_t place) {
  if (place >= gathered_.size()) return;
  const auto begin = gathered_.begin() + static_cast<std::ptrdiff_t>(place);
  const auto longest = std::max_element(
      begin, gathered_.end(),
      [](const GatheredFrame& a, const GatheredFrame& b) { return a.Length < b.Length; });
  std::rotate(begin, longest, longest + 1);
}

}  // namespace adapters
