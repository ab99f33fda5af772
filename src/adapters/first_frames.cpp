#include "adapters/first_frames.h"

#include <utility>

namespace adapters {

using platform::CapturedFrame;
using platform::Wanted;

namespace {

/// Eighty frames of each usual stream: enough to hear them all, too short to be noticed.
constexpr std::chrono::milliseconds GatheringTime{20};

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
  takesMore_ = true;
  if (!std::exchange(running_, true)) gathering_ = fresh_ || wish_;
}

void FirstFrames::Stop() {
  Drop();
  source_->Stop();
}

void FirstFrames::TakeNoMore() {
  takesMore_ = false;
  source_->TakeNoMore();
}

void FirstFrames::Release() {
  Drop();
  source_->Release();
}

void FirstFrames::Drop() {
  running_ = false;
  gathering_ = false;
  lookedAtAll_ = true;
  end_.reset();
  gathered_.Clear();
}

std::optional<CapturedFrame> FirstFrames::Next() {
  if (gathering_) {
    if (!Gather()) return std::nullopt;
    gathered_.PutInOrder(fresh_);
    gathering_ = false;
    fresh_ = false;
    lookedAtAll_ = true;
  }
  if (std::optional<CapturedFrame> frame = gathered_.Next()) return frame;
  return source_->Next();
}

bool FirstFrames::Gather() {
  const bool timeIsOver = end_ && clock_.Now() >= *end_;
  for (int lookedAt = 0; lookedAt < MostLookedAt; ++lookedAt) {
    const std::optional<CapturedFrame> frame = source_->Next();
    lookedAtAll_ = !frame && source_->LookedAtAll();
    if (!frame) break;
    if (!end_) end_ = clock_.Now() + GatheringTime;
    const Wanted wanted = wish_ ? wish_(*frame) : Wanted::No;
    gathered_.Add(*frame, wanted);
    // The longest is sought to the end, but nothing better than this can come.
    if (!fresh_ && wanted == Wanted::Most) return true;
  }
  if (timeIsOver) return true;
  return !takesMore_ && lookedAtAll_ && !gathered_.Empty();
}

}  // namespace adapters
