#include "adapters/channel_layer.h"

#include <utility>

#include "base/failure.h"

namespace adapters {

namespace {

/// A channel holds no frame between two deliveries and a stop throws away what the driver holds, so
/// there is nothing left to discard; and where a handler has started anew in the meantime, the
/// frames that wait belong to that start.
class EmptyCollection : public platform::PacketCollection {
 public:
  void Clear() override {}
};

}  // namespace

ChannelLayer::~ChannelLayer() {
  if (link_) link_->RunningChanged = nullptr;
}

std::unique_ptr<platform::CaptureObject> ChannelLayer::NewCaptureObject() {
  Entries entries = NewEntries();
  if (link_) link_->RunningChanged = nullptr;
  link_ = std::make_shared<ChannelLink>();
  link_->RunningChanged = [this](bool running) {
    if (Running) Running(running);
  };
  return std::make_unique<CaptureChannel>(std::move(entries), link_);
}

std::unique_ptr<platform::PacketCollection> ChannelLayer::NewPacketCollection() {
  return std::make_unique<EmptyCollection>();
}

std::int32_t ChannelLayer::Insert(std::unique_ptr<SourceAdapter> adapter) {
  if (!link_ || link_->Channel == nullptr) throw platform::Failure(platform::failure::ObjectNotSet);
  return link_->Channel->Insert(std::move(adapter));
}

bool ChannelLayer::DeliverOne() {
  return link_ && link_->Channel != nullptr && link_->Channel->DeliverOne();
}

}  // namespace adapters
