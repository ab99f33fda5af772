#include "adapters/gathered_frames.h"

#include <algorithm>
#include <utility>

namespace adapters {

using platform::CapturedFrame;
using platform::Wanted;

void GatheredFrames::Clear() {
  *this = {};
}

void GatheredFrames::Add(const CapturedFrame& frame, Wanted wanted) {
  others_.push_back(
      {count_++, frame.Length, frame.Arrived, {frame.Bytes.begin(), frame.Bytes.end()}});
  const Frame& added = others_.back();
  if (!longest_ || added.Length > longest_->Length) longest_ = added;
  KeepWanted(added, wanted);
  if (others_.size() > MostKept) others_.pop_front();
}

void GatheredFrames::KeepWanted(const Frame& frame, Wanted wanted) {
  if (wanted > wanted_.How) {
    wantedNext_ = std::exchange(wanted_, {wanted, frame});
  } else if (wanted > wantedNext_.How) {
    wantedNext_ = {wanted, frame};
  }
}

void GatheredFrames::PutInOrder(bool longestFirst) {
  if (longestFirst && longest_) BringForward(*longest_);
  const bool taken = !head_.empty() && head_.front().Number == wanted_.What.Number;
  const WantedFrame& met = taken ? wantedNext_ : wanted_;
  if (met.How != Wanted::No) BringForward(met.What);
}

void GatheredFrames::BringForward(const Frame& frame) {
  head_.push_back(frame);
  const auto stands = std::find_if(others_.begin(), others_.end(),
                                   [&](const Frame& f) { return f.Number == frame.Number; });
  if (stands != others_.end()) others_.erase(stands);
}

std::optional<CapturedFrame> GatheredFrames::Next() {
  std::deque<Frame>& from = head_.empty() ? others_ : head_;
  if (from.empty()) return std::nullopt;
  handed_ = std::move(from.front());
  from.pop_front();
  return CapturedFrame{handed_.Bytes, handed_.Length, handed_.Arrived};
}

}  // namespace adapters
