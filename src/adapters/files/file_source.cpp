#include "adapters/files/file_source.h"

#include <algorithm>
#include <utility>

namespace adapters {

using platform::Failure;
using std::chrono::microseconds;
using std::chrono::nanoseconds;
namespace failure = platform::failure;

FileSource::FileSource(std::filesystem::path file, const platform::Clock& clock, FilePlay play)
    : file_(std::move(file)), clock_(clock), play_(play) {}

void FileSource::Prepare(const SourceSettings& settings) {
  running_ = false;
  settings_ = settings;
  Open();
  ReportDamage();
}

void FileSource::Open() {
  if (reader_) return;
  ForgetDamage();
  reader_.emplace(file_);
  pace_ = {};
  Fetch();
  if (waiting_) return;
  reader_.reset();
  throw Unplayable();
}

void FileSource::Start() {
  if (!filter_ || filterText_ != settings_.Filter) {
    filter_.emplace(settings_.Filter);
    filterText_ = settings_.Filter;
  }
  if (running_) return;
  if (!waiting_) Fetch();
  // The first frame after a start is due at once.
  due_ = clock_.Now();
  wallAtZero_ = clock_.WallTime() - std::chrono::duration_cast<microseconds>(due_);
  bound_ = nanoseconds::max();
  running_ = true;
}

void FileSource::TakeNoMore() {
  bound_ = clock_.Now();
  searchedFrom_ = passes_;
}

std::optional<platform::CapturedFrame> FileSource::Next() {
  lookedAtAll_ = true;
  if (!running_) return std::nullopt;
  const nanoseconds now = std::min(clock_.Now(), bound_);
  // Begun anew a second time, the file has been searched as a whole, and beginning it is dear.
  const std::uint64_t lastPass = passes_ + 1;
  for (int lookedAt = 0; lookedAt < MostLookedAt; ++lookedAt) {
    if (!waiting_) Fetch();
    if (!waiting_ || due_ > now || passes_ > lastPass) return std::nullopt;
    platform::CapturedFrame frame = waiting_->Frame;
    frame.Arrived = wallAtZero_ + std::chrono::duration_cast<microseconds>(due_);
    waiting_.reset();
    if (!filter_->Selects(frame.Bytes, frame.Length)) continue;
    searchedFrom_ = passes_;
    return frame;
  }
  // Where a whole pass held no frame for the filter, none is to be expected.
  lookedAtAll_ = passes_ > searchedFrom_ + 1;
  return std::nullopt;
}

void FileSource::Fetch() {
  if (!reader_) return;
  waiting_ = reader_->Next();
  if (waiting_) {
    due_ += pace_.GapBefore(waiting_->Time);
    return;
  }
  MeetEnd();
}

void FileSource::MeetEnd() {
  NoteDamage();
  if (play_ == FilePlay::Once) {
    ended_ = true;
    return;
  }
  waiting_ = FetchFromBeginning();
  if (!waiting_) return;
  due_ += pace_.GapAtSeam(waiting_->Time);
  ++passes_;
}

std::optional<RecordedFrame> FileSource::FetchFromBeginning() {
  const bool playable = reader_->FramesRead() > 0;
  try {
    if (playable) {
      if (!reader_->Rewind()) ForgetDamage();
      if (std::optional<RecordedFrame> frame = reader_->Next()) return frame;
    }
  } catch (const Failure&) {
    // The file was taken away while it played; the next opening tells so.
  }
  reader_.reset();
  return std::nullopt;
}

void FileSource::NoteDamage() {
  if (reader_->Damage().empty() || !damage_.empty()) return;
  damage_ = "The capture file " + file_.string() + " is damaged behind frame " +
            std::to_string(reader_->FramesRead()) + ": " + reader_->Damage() +
            (play_ == FilePlay::Once ? ". The frames up to there were played."
                                     : ". The frames up to there are played over and over.") +
            " Please copy or record the file anew.";
}

void FileSource::ForgetDamage() {
  damage_.clear();
  damageReported_ = false;
}

void FileSource::ReportDamage() {
  if (damage_.empty() || damageReported_) return;
  damageReported_ = true;
  throw Failure(failure::DeviceIo, damage_);
}

Failure FileSource::Unplayable() const {
  return {failure::DeviceIo, "The capture file " + file_.string() +
                                 " holds no frame that can be read. Please put a sound Ethernet "
                                 "capture in its place, or choose another network adapter."};
}

}  // namespace adapters
