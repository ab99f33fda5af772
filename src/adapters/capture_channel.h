#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "adapters/source_adapter.h"
#include "platform/services/capture_object.h"

namespace adapters {

class CaptureChannel;

/// What ties a channel to the layer that made it; either of them may go first.
struct ChannelLink {
  CaptureChannel* Channel = nullptr;
  std::function<void(bool)> RunningChanged;
};

/// The capture object: the list of adapters, the one in use, and the delivery of its frames.
/// Each frame is copied before its event is raised, so that the source is free while a handler
/// works.
class CaptureChannel : public platform::CaptureObject {
 public:
  CaptureChannel(std::vector<std::unique_ptr<SourceAdapter>> adapters,
                 std::shared_ptr<ChannelLink> link);
  CaptureChannel(const CaptureChannel&) = delete;
  CaptureChannel& operator=(const CaptureChannel&) = delete;
  ~CaptureChannel() override;

  std::int32_t AdapterCount() const override;
  platform::CaptureAdapter& Adapters(std::int32_t index) override;
  void SetAdapter(platform::CaptureAdapter& adapter) override;
  platform::CaptureAdapter& Adapter() override { return Selected(); }
  void SetWish(platform::FrameWish wish) override { wish_ = std::move(wish); }
  void Start() override;
  void Stop() override;
  void DeliverArrived() override;
  platform::Presence AdapterPresence() override;
  std::optional<std::uint64_t> Dropped() override;

  /// Puts an adapter behind those that can capture; gives its 1-based place.
  std::int32_t Insert(std::unique_ptr<SourceAdapter> adapter);

  /// Raises `OnPacket` for one frame that is due; False when none is due, or when many others had
  /// to be looked at.
  bool DeliverOne();

 private:
  /// No frame is due any more, as far as the source can tell at once.
  bool AllDelivered() { return !running_ || selected_->Source().LookedAtAll(); }
  SourceAdapter& Selected();
  void SetRunning(bool running);
  /// The buffer of the frame at a nesting depth; it is kept for the frames to come.
  std::vector<std::uint8_t>& BufferAt(std::size_t depth);

  std::vector<std::unique_ptr<SourceAdapter>> adapters_;
  std::shared_ptr<ChannelLink> link_;
  SourceAdapter* selected_ = nullptr;
  platform::FrameWish wish_;
  bool running_ = false;
  std::uint32_t starts_ = 0;
  /// Handlers of this channel that are under way, one inside the other.
  std::size_t depth_ = 0;
  /// A deque, because a nested frame may add a buffer while the outer frame is in use.
  std::deque<std::vector<std::uint8_t>> buffers_;
};

}  // namespace adapters
