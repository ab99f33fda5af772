#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "adapters/capture_channel.h"
#include "adapters/frame_source.h"
#include "platform/clock.h"
#include "platform/services/capture_object.h"
#include "support/sv_frame.h"

namespace support {

/// Senders that are locked to one clock: in each 250 us they send one behind the other, always in
/// the same order, so that a start between two milliseconds always meets the first one first.
class LockedSenders : public adapters::FrameSource {
 public:
  explicit LockedSenders(const platform::Clock& clock) : clock_(clock) {}

  void Prepare(const adapters::SourceSettings&) override { running_ = false; }
  void Start() override;
  void Stop() override { running_ = false; }
  void TakeNoMore() override {}
  void Release() override { running_ = false; }
  std::optional<platform::CapturedFrame> Next() override;

  /// What is sent in each period, in this order.
  std::vector<FrameBytes> Frames;
  /// The bus begins to send here.
  std::chrono::nanoseconds Silent{};
  /// Writes something into each frame before it is sent.
  std::function<void(FrameBytes& frame, std::int64_t period)> Change;
  int Starts = 0;

 private:
  std::chrono::nanoseconds Due() const;

  const platform::Clock& clock_;
  bool running_ = false;
  std::int64_t period_ = 0;
  std::size_t place_ = 0;
  FrameBytes frame_;
};

/// The program's own capture object with these senders behind its one adapter.
class LockedBus : public platform::CaptureLayer {
 public:
  explicit LockedBus(const platform::Clock& clock) : clock_(clock) {}

  std::unique_ptr<platform::CaptureObject> NewCaptureObject() override;
  std::unique_ptr<platform::PacketCollection> NewPacketCollection() override;
  std::string Advice() const override { return {}; }
  /// Brings the frames that are due to the program.
  void Deliver();

  LockedSenders* Senders = nullptr;

 private:
  const platform::Clock& clock_;
  std::shared_ptr<adapters::ChannelLink> link_ = std::make_shared<adapters::ChannelLink>();
};

}  // namespace support
