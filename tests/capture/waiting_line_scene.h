#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <map>
#include <string>

#include "config/setup_view.h"
#include "support/capture_bench.h"

namespace packetroutines {

using std::chrono::milliseconds;
using std::chrono::seconds;
using support::FrameBytes;
using support::PlainFrame;
using support::SvFrame;

/// A run that is looked at, on a bus in the hands of the test. One station is chosen, "MU01".
class WaitingLineScene : public testing::Test {
 protected:
  WaitingLineScene() {
    bench.Settings.FilterContent[1] = config::NoContent;
    // A scene looks at the line for longer than any watchdog would let it, and restarts by hand.
    for (platform::Timer* timer : {&bench.Main.Timer1, &bench.Main.Timer2, &bench.Main.Timer3}) {
      timer->Elapsed = nullptr;
    }
  }

  void Start(platform::CWButton& button, const char* mode) {
    button.Value = true;
    bench.Run(mode);
  }
  void StartRecording(const FrameBytes& first) {
    Start(bench.Main.CWButton3, "LookingForRecording");
    bench.Receive(first);
  }
  void StartValues() { Start(bench.Main.CWButton4, "LookingForValues"); }
  /// Values, with the frame length already known.
  void StartValuesWith(const FrameBytes& first) {
    StartValues();
    bench.Receive(first);
  }
  void Restart() { bench.Acquisition.StartCapture("LookingForValues"); }
  void Frames(int count, const FrameBytes& frame) {
    bench.Receive(count, [&](int) { return Counted(frame); });
  }
  /// The next frame of a sender that sends these: its counter goes on.
  FrameBytes Counted(FrameBytes frame) {
    const std::uint16_t count = sent_[frame]++ % 4000;
    constexpr std::array<std::uint8_t, 2> Tag{0x82, 2};
    const auto tag = std::search(frame.begin(), frame.end(), Tag.begin(), Tag.end());
    if (tag == frame.end()) return frame;
    tag[2] = static_cast<std::uint8_t>(count >> 8U);
    tag[3] = static_cast<std::uint8_t>(count & 0xFFU);
    return frame;
  }
  std::string Line(std::size_t view = forms::quiet_line::Values) {
    const platform::QuietLine& line = bench.Main.QuietLine[view];
    EXPECT_EQ(line.Visible, !line.Caption.Get().empty());
    return line.Caption;
  }

  support::CaptureBench bench;
  AcquisitionState& state = bench.State;

 private:
  std::map<FrameBytes, std::uint16_t> sent_;
};

}  // namespace packetroutines
