#include "support/locked_bus.h"

#include <algorithm>

#include "adapters/source_adapter.h"

namespace support {

namespace {

constexpr std::chrono::nanoseconds Period{250'000};
constexpr std::chrono::nanoseconds Spacing{5'000};

class Collection : public platform::PacketCollection {
 public:
  void Clear() override {}
};

}  // namespace

std::chrono::nanoseconds LockedSenders::Due() const {
  // More senders than have room at the usual spacing move together.
  const auto count = static_cast<std::int64_t>(std::max<std::size_t>(Frames.size(), 1));
  const auto spacing = std::min(Spacing, Period / count);
  return period_ * Period + static_cast<std::int64_t>(place_) * spacing;
}

void LockedSenders::Start() {
  ++Starts;
  period_ = std::max(clock_.Now(), Silent) / Period;
  place_ = 0;
  while (Due() < std::max(clock_.Now(), Silent)) {
    place_ = (place_ + 1) % Frames.size();
    if (place_ == 0) ++period_;
  }
  running_ = true;
}

std::optional<platform::CapturedFrame> LockedSenders::Next() {
  if (!running_ || Frames.empty() || Due() > clock_.Now()) return std::nullopt;
  frame_ = Frames[place_];
  if (Change) Change(frame_, period_);
  place_ = (place_ + 1) % Frames.size();
  if (place_ == 0) ++period_;
  return platform::CapturedFrame{frame_, frame_.size()};
}

std::unique_ptr<platform::CaptureObject> LockedBus::NewCaptureObject() {
  auto senders = std::make_unique<LockedSenders>(clock_);
  Senders = senders.get();
  std::vector<std::unique_ptr<adapters::SourceAdapter>> adapters;
  adapters.push_back(
      std::make_unique<adapters::SourceAdapter>("Bus", true, std::move(senders), clock_));
  return std::make_unique<adapters::CaptureChannel>(std::move(adapters), link_);
}

std::unique_ptr<platform::PacketCollection> LockedBus::NewPacketCollection() {
  return std::make_unique<Collection>();
}

void LockedBus::Deliver() {
  while (link_->Channel != nullptr && link_->Channel->DeliverOne()) {
  }
}

}  // namespace support
