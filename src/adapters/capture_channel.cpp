#include "adapters/capture_channel.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/failure.h"
#include "base/raised.h"

namespace adapters {

using platform::Failure;

namespace {

/// The longest frame without fragments of an offload; longer ones make a buffer grow once.
constexpr std::size_t UsualFrameBytes = 1522;

}  // namespace

CaptureChannel::CaptureChannel(std::vector<std::unique_ptr<SourceAdapter>> adapters,
                               std::shared_ptr<ChannelLink> link)
    : adapters_(std::move(adapters)), link_(std::move(link)) {
  link_->Channel = this;
}

CaptureChannel::~CaptureChannel() {
  link_->Channel = nullptr;
  if (running_ && link_->RunningChanged) link_->RunningChanged(false);
}

std::int32_t CaptureChannel::AdapterCount() const {
  return static_cast<std::int32_t>(adapters_.size());
}

platform::CaptureAdapter& CaptureChannel::Adapters(std::int32_t index) {
  if (index < 1 || index > AdapterCount()) throw Failure(platform::failure::SubscriptOutOfRange);
  return *adapters_[static_cast<std::size_t>(index) - 1];
}

std::int32_t CaptureChannel::Insert(std::unique_ptr<SourceAdapter> adapter) {
  const auto place = std::find_if(adapters_.begin(), adapters_.end(),
                                  [](const auto& own) { return !own->IsGood(); });
  return static_cast<std::int32_t>(adapters_.insert(place, std::move(adapter)) -
                                   adapters_.begin()) +
         1;
}

void CaptureChannel::SetAdapter(platform::CaptureAdapter& adapter) {
  const auto found = std::find_if(adapters_.begin(), adapters_.end(),
                                  [&](const auto& own) { return own.get() == &adapter; });
  if (found == adapters_.end()) throw Failure(platform::failure::InvalidPropertyValue);
  if (selected_ == found->get()) return;
  Stop();
  if (selected_ != nullptr) selected_->Source().Release();
  selected_ = found->get();
}

SourceAdapter& CaptureChannel::Selected() {
  if (selected_ == nullptr) {
    throw Failure(platform::failure::ObjectNotSet, "No network adapter has been chosen.");
  }
  return *selected_;
}

void CaptureChannel::Start() {
  try {
    ++starts_;
    if (selected_ != nullptr) {
      selected_->Source().SetWish(wish_);
      selected_->Source().Start();
    }
  } catch (...) {
    // A start that fails leaves nothing running, also where a delivery ran before.
    Stop();
    throw;
  }
  SetRunning(true);
}

void CaptureChannel::Stop() {
  if (selected_ != nullptr) selected_->Source().Stop();
  SetRunning(false);
}

void CaptureChannel::DeliverArrived() {
  if (!running_ || selected_ == nullptr) return;
  selected_->Source().TakeNoMore();
  // A handler may stop the delivery; then nothing more is due. One that starts anew begins another
  // delivery, which is none of this one's.
  const std::uint32_t starts = starts_;
  while (starts_ == starts && (DeliverOne() || !AllDelivered())) {
  }
}

platform::Presence CaptureChannel::AdapterPresence() {
  return selected_ == nullptr ? platform::Presence::There : selected_->Source().Presence();
}

std::optional<std::uint64_t> CaptureChannel::Dropped() {
  return selected_ == nullptr ? std::nullopt : selected_->Source().Dropped();
}

void CaptureChannel::SetRunning(bool running) {
  if (running == running_) return;
  running_ = running;
  if (link_->RunningChanged) link_->RunningChanged(running);
}

std::vector<std::uint8_t>& CaptureChannel::BufferAt(std::size_t depth) {
  while (buffers_.size() <= depth) buffers_.emplace_back().reserve(UsualFrameBytes);
  return buffers_[depth];
}

bool CaptureChannel::DeliverOne() {
  if (!running_ || selected_ == nullptr) return false;
  const std::optional<platform::CapturedFrame> frame = selected_->Source().Next();
  if (!frame) return false;
  std::vector<std::uint8_t>& buffer = BufferAt(depth_);
  buffer.assign(frame->Bytes.begin(), frame->Bytes.end());
  const platform::Counted guard(depth_);
  if (OnPacket) OnPacket(platform::CapturedFrame{buffer, frame->Length, frame->Arrived});
  return true;
}

}  // namespace adapters
