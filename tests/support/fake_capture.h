#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/failure.h"
#include "platform/clock.h"
#include "platform/services/capture_object.h"
#include "support/journal.h"

namespace support {

/// An adapter that writes down its settings.
class FakeAdapter : public platform::CaptureAdapter {
 public:
  FakeAdapter(Journal& journal, std::string description, bool good)
      : journal_(journal), description_(std::move(description)), good_(good) {}

  bool IsGood() const override { return good_; }
  std::string Description() const override;
  void Set(std::string_view property, const Value& value) override;

  std::map<std::string, Value, std::less<>> Settings;
  /// Raised when the property of this name is set.
  std::map<std::string, platform::Failure, std::less<>> FailureAt;
  /// Raised when its description is read.
  std::optional<platform::Failure> ReadFailure;

 private:
  Journal& journal_;
  std::string description_;
  bool good_;
};

/// A capture library whose frames come from the test.
class FakeCapture : public platform::CaptureLayer {
 public:
  /// The frames come in when the clock shows it.
  FakeCapture(Journal& journal, const platform::Clock& clock) : journal_(journal), clock_(clock) {}

  std::unique_ptr<platform::CaptureObject> NewCaptureObject() override;
  std::unique_ptr<platform::PacketCollection> NewPacketCollection() override;
  std::string Advice() const override { return AdviceText; }
  /// Every file can be played but one whose name says so.
  std::int32_t AddFile(const std::string& path) override;

  FakeAdapter& AddAdapter(const std::string& description, bool good = true);
  /// While it is held, frames come in and are not handed over. Holds nest.
  void Hold() { ++holds_; }
  void Release() { --holds_; }
  /// A frame comes in; it reaches the program only while capture runs.
  void Receive(std::span<const std::uint8_t> bytes);
  /// A frame that was in flight when capture stopped.
  void ReceiveInFlight(std::span<const std::uint8_t> bytes);
  /// A frame arrives, and waits to be handed over; a stop drops it.
  void Arrive(std::vector<std::uint8_t> frame) { waiting_.push_back(std::move(frame)); }
  /// A frame whose true length is more than what was captured of it.
  void ReceiveCut(std::span<const std::uint8_t> bytes, std::size_t trueLength);

  std::string AdviceText;
  bool Running = false;
  /// What is told of the adapter in use.
  platform::Presence AdapterPresence = platform::Presence::There;
  /// What the system tells of frames that nobody took in time.
  std::optional<std::uint64_t> Dropped;
  /// How long frames have waited until they are handed over.
  std::chrono::microseconds Waited{0};
  /// What happened to collections of packets, "create" or "clear", beside the common journal.
  Journal Collections;
  FakeAdapter* Chosen = nullptr;
  /// Runs when the program asks for frames, before the start succeeds or fails.
  std::function<void()> AtStart;
  /// What the program would like to meet; it is asked of each frame that is handed over.
  platform::FrameWish Wish;
  std::optional<platform::Failure> CreateFailure;
  std::optional<platform::Failure> StartFailure;
  std::optional<platform::Failure> StopFailure;
  std::optional<platform::Failure> ClearFailure;

 private:
  class Object;
  class Collection;

  Journal& journal_;
  const platform::Clock& clock_;
  std::vector<std::unique_ptr<FakeAdapter>> adapters_;
  Object* object_ = nullptr;
  int holds_ = 0;
  std::deque<std::vector<std::uint8_t>> waiting_;
};

}  // namespace support
