#include "adapters/file_source.h"

#include <algorithm>
#include <utility>

namespace adapters {

using platform::Failure;
using std::chrono::nanoseconds;
namespace failure = platform::failure;

namespace {

/// The gap at the seam of a file whose time stamps tell none: that of 4000 frames a second.
constexpr nanoseconds UsualGap = std::chrono::microseconds(250);
/// A longer pause is a clock that was set while the file was written, not the pace of a bus.
constexpr nanoseconds LongestGap = std::chrono::hours(1);
/// Frames that one call passes over at most, so that a file of nothing but other frames does not
/// hold up the program.
constexpr int MostPassedOver = 4096;

}  // namespace

FileSource::FileSource(std::filesystem::path file, const platform::Clock& clock)
    : file_(std::move(file)), clock_(clock) {}

void FileSource::Prepare(const SourceSettings& settings) {
  running_ = false;
  settings_ = settings;
  Open();
  ReportDamage();
}

void FileSource::Open() {
  if (reader_) return;
  reader_.emplace(file_);
  first_ = true;
  firstPass_ = true;
  lastTime_.reset();
  gaps_ = {};
  gapCount_ = 0;
  Fetch();
  if (waiting_) return;
  reader_.reset();
  throw Unplayable();
}

void FileSource::Start() {
  if (!reader_) throw Unplayable();
  if (!filter_ || filterText_ != settings_.Filter) {
    filter_.emplace(settings_.Filter);
    filterText_ = settings_.Filter;
  }
  if (running_) return;
  due_ = clock_.Now();
  first_ = true;
  running_ = true;
}

std::optional<platform::CapturedFrame> FileSource::Next() {
  if (!running_) return std::nullopt;
  const nanoseconds now = clock_.Now();
  for (int passedOver = 0; passedOver < MostPassedOver; ++passedOver) {
    if (!waiting_) Fetch();
    if (!waiting_ || due_ > now) return std::nullopt;
    const platform::CapturedFrame frame = waiting_->Frame;
    waiting_.reset();
    first_ = false;
    if (filter_->Selects(frame.Bytes, frame.Length)) return frame;
  }
  return std::nullopt;
}

void FileSource::Fetch() {
  if (!reader_) return;
  waiting_ = reader_->Next();
  if (waiting_) {
    const nanoseconds gap = GapBefore(*waiting_);
    if (!first_) due_ += gap;
  } else {
    NoteDamage();
    waiting_ = FetchFromBeginning();
    if (!first_) due_ += MeanGap();
  }
  if (waiting_) lastTime_ = waiting_->Time;
}

std::optional<RecordedFrame> FileSource::FetchFromBeginning() {
  firstPass_ = false;
  const bool playable = reader_->FramesRead() > 0;
  try {
    if (playable) {
      reader_->Rewind();
      if (std::optional<RecordedFrame> frame = reader_->Next()) return frame;
    }
  } catch (const Failure&) {
    // The file was taken away while it played; the next opening tells so.
  }
  reader_.reset();
  return std::nullopt;
}

nanoseconds FileSource::GapBefore(const RecordedFrame& frame) {
  if (!lastTime_) return {};
  const nanoseconds gap = std::clamp(frame.Time - *lastTime_, nanoseconds(0), LongestGap);
  if (firstPass_) {
    gaps_ += gap;
    ++gapCount_;
  }
  return gap;
}

nanoseconds FileSource::MeanGap() const {
  if (gapCount_ == 0 || gaps_ / gapCount_ == nanoseconds(0)) return UsualGap;
  return gaps_ / gapCount_;
}

void FileSource::NoteDamage() {
  if (reader_->Damage().empty() || !damage_.empty()) return;
  damage_ =
      "The capture file " + file_.string() + " is damaged behind frame " +
      std::to_string(reader_->FramesRead()) + ": " + reader_->Damage() +
      ". The frames up to there are played over and over. Please copy or record the file anew.";
}

void FileSource::ReportDamage() {
  if (damage_.empty() || damageReported_) return;
  damageReported_ = true;
  throw Failure(failure::DeviceIo, damage_);
}

Failure FileSource::Unplayable() const {
  return {failure::DeviceIo, "The capture file " + file_.string() +
                                 " holds no frame that can be read. Please put a sound Ethernet "
                                 "capture in its place, or choose another network adapter in the "
                                 "Setup."};
}

}  // namespace adapters
