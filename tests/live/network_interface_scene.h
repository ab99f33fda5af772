#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <thread>
#include <vector>

#include "adapters/interfaces/pcap_source.h"
#include "live/wire.h"

namespace live {

inline constexpr std::int32_t ViewBuffer = 262144;
inline constexpr std::int32_t RecordingBuffer = 33554432;
inline constexpr const char* RightAdvice = "Ask for the right.";

/// A scene on a virtual wire: the source listens at the near end.
class NetworkInterfaceScene : public ::testing::Test {
 protected:
  void SetUp() override {
    const std::string reason = WhyNoWire();
    if (!reason.empty()) GTEST_SKIP() << reason;
    LayWire();
  }
  void TearDown() override {
    if (WhyNoWire().empty()) CutWire();
  }

  static adapters::SourceSettings Settings(const std::string& userText = "",
                                           std::int32_t buffer = ViewBuffer) {
    return {buffer, true, "ether proto 0x88ba" + userText};
  }

  /// Reads what arrives until nothing has come for a while.
  std::vector<std::vector<std::uint8_t>> ReadAll() {
    std::vector<std::vector<std::uint8_t>> frames;
    auto quietSince = std::chrono::steady_clock::now();
    while (std::chrono::steady_clock::now() - quietSince < std::chrono::milliseconds(50)) {
      if (const auto frame = source_.Next()) {
        frames.emplace_back(frame->Bytes.begin(), frame->Bytes.end());
        quietSince = std::chrono::steady_clock::now();
      } else {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
      }
    }
    return frames;
  }

  /// How often a frame was sent until it was read; 0 where it never was.
  std::size_t SentUntilOneArrives(const std::vector<std::uint8_t>& frame) {
    Sender sender;
    for (std::size_t sent = 1; sent <= 100; ++sent) {
      sender.Send(frame);
      if (!ReadAll().empty()) return sent;
    }
    return 0;
  }

  adapters::PcapSource source_{NearEnd, RightAdvice};
};

}  // namespace live
