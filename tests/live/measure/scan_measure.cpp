// How often the scan for samples is misled by the samples themselves, where a stream is shorter
// than the longest one on its bus.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iostream>
#include <random>

#include "live/bus/frame.h"
#include "support/capture_bench.h"

namespace {

constexpr int Scans = 10'000'000;
constexpr std::size_t SampleBytes = 64;

class ScansBesideALongerStream : public testing::TestWithParam<int> {};

TEST_P(ScansBesideALongerStream, AreMisled) {
  bus::Sender sender;
  sender.Id = "BAY-01";
  bus::FrameEncoder frames(sender, 4000, bus::Lan::None);
  bus::Bytes frame = frames.FrameOf(0);
  const std::size_t data = frame.size() - SampleBytes;
  const auto expected = static_cast<std::int16_t>(frame.size() + GetParam());

  support::CaptureBench bench;
  packetroutines::PacketBytes bytes;
  const auto locate = [&] {
    bytes.Redim(expected);
    bytes.Copy(frame);
    bench.Locator.FindDataOffsets(bytes, expected, 0);
    return std::pair{bench.State.SampleCountOffset[0], bench.State.ValueOffset[0]};
  };
  std::fill(frame.begin() + static_cast<std::ptrdiff_t>(data), frame.end(), std::uint8_t{0});
  const auto right = locate();
  std::mt19937_64 random(1);
  int misled = 0;
  for (int scan = 0; scan < Scans; ++scan) {
    for (std::size_t at = data; at < frame.size(); at += sizeof(std::uint64_t)) {
      const std::uint64_t eight = random();
      std::memcpy(frame.data() + at, &eight, sizeof eight);
    }
    if (locate() != right) ++misled;
  }
  std::cout << misled << " of " << Scans << " scans of frames " << GetParam()
            << " bytes shorter than expected were false" << std::endl;
}

INSTANTIATE_TEST_SUITE_P(BytesShorter, ScansBesideALongerStream, testing::Values(0, 4, 64));

}  // namespace
