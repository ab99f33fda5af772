#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "adapters/capture_channel.h"
#include "adapters/source_adapter.h"
#include "platform/services/capture_object.h"

namespace adapters {

/// A capture library whose list of adapters is another one's to say. It brings the frames of the
/// capture object made last to the program.
class ChannelLayer : public platform::CaptureLayer, public platform::FrameDelivery {
 public:
  ChannelLayer() = default;
  ChannelLayer(const ChannelLayer&) = delete;
  ChannelLayer& operator=(const ChannelLayer&) = delete;
  ~ChannelLayer() override;

  std::unique_ptr<platform::CaptureObject> NewCaptureObject() override;
  std::unique_ptr<platform::PacketCollection> NewPacketCollection() override;
  bool DeliverOne() override;

 protected:
  using Entries = std::vector<std::unique_ptr<SourceAdapter>>;

  /// Puts an adapter into the list in use, behind those that can capture; gives its 1-based place.
  std::int32_t Insert(std::unique_ptr<SourceAdapter> adapter);

 private:
  /// The adapters of a new capture object, in their order.
  virtual Entries NewEntries() = 0;

  std::shared_ptr<ChannelLink> link_;
};

}  // namespace adapters
