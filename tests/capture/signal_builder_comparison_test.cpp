// Random frames through the signal builder and through a second, plain implementation.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <random>

#include "support/capture_bench.h"

namespace {

using support::CaptureBench;
using support::CellsOf;
using support::FrameBytes;

/// What one frame makes of a row of zeros.
struct Row {
  std::int32_t Count = 0;
  std::array<double, 8> Values{};
  bool SignalOk = true;
};

/// Byte at a position: 0 before the frame and behind it, nothing beyond the upper index.
std::optional<double> ByteAt(const FrameBytes& frame, int upper, int position) {
  if (position > upper) return std::nullopt;
  if (position == 0 || position > static_cast<int>(frame.size())) return 0.0;
  return frame[static_cast<std::size_t>(position - 1)];
}

struct Case {
  FrameBytes Frame;
  std::int16_t Upper = 0;
  std::int16_t CountOffset = 0;
  /// 0 where the samples of the stream were never found.
  std::int16_t ValueOffset = 0;
  std::int16_t Channels = 0;
  float CurrentFactor = 1;
  float VoltageFactor = 1;
};

std::optional<double> Sample(const Case& c, int channel) {
  if (c.ValueOffset == 0) return 0.0;
  double sum = 0;
  for (int i = 0; i < 4; ++i) {
    const auto byte = ByteAt(c.Frame, c.Upper, c.ValueOffset + 8 * channel + i);
    if (!byte) return std::nullopt;
    sum = sum * 256 + *byte;
  }
  return sum > 2147483648.0 ? sum - 4294967296.0 : sum;
}

/// The first stream gives up at the first value that is not there.
Row FirstStream(const Case& c) {
  Row row;
  // A counter that was never found reads as 0, as samples do.
  const auto high = c.CountOffset == 0 ? 0 : ByteAt(c.Frame, c.Upper, c.CountOffset);
  const auto low = c.CountOffset == 0 ? 0 : ByteAt(c.Frame, c.Upper, c.CountOffset + 1);
  if (!high || !low) return {0, {}, false};
  row.Count = static_cast<std::int32_t>(256 * *high + *low);
  for (int i = 0; i < 4; ++i) {
    const auto current = Sample(c, i);
    if (!current) return {row.Count, row.Values, false};
    row.Values[static_cast<std::size_t>(i)] = *current / 1000 * double{c.CurrentFactor};
    if (c.Channels < 6) continue;
    const auto voltage = Sample(c, 4 + i);
    if (!voltage) return {row.Count, row.Values, false};
    row.Values[static_cast<std::size_t>(i) + 4] = *voltage / 100000 * double{c.VoltageFactor};
  }
  row.SignalOk = std::any_of(row.Values.begin(), row.Values.end(),
                             [](double value) { return std::abs(value) >= 0.1; });
  return row;
}

/// The second stream goes on behind each value that is not there, and knows no units.
Row SecondStream(const Case& c) {
  Row row;
  // A counter that was never found reads as 0, as samples do.
  const auto high = c.CountOffset == 0 ? 0 : ByteAt(c.Frame, c.Upper, c.CountOffset);
  const auto low = c.CountOffset == 0 ? 0 : ByteAt(c.Frame, c.Upper, c.CountOffset + 1);
  if (high && low && *high < 128) row.Count = static_cast<std::int32_t>(256 * *high + *low);
  for (int i = 0; i < 4; ++i) {
    const auto at = static_cast<std::size_t>(i);
    row.Values[at] = Sample(c, i).value_or(0) / 1000;
    if (c.Channels < 5) continue;
    row.Values[at + 4] = Sample(c, 4 + i).value_or(0) / 100000;
  }
  return row;
}

class RandomCases {
 public:
  Case Next() {
    Case c;
    c.Frame.resize(Between(1, 200));
    // Small values are as likely as large ones, so that silent rows occur.
    const bool faint = Between(0, 3) == 0;
    for (auto& byte : c.Frame) {
      byte = static_cast<std::uint8_t>(faint ? (Between(0, 30) == 0 ? 1 : 0) : Between(0, 255));
    }
    c.Upper = static_cast<std::int16_t>(c.Frame.size() + Between(0, 20));
    c.CountOffset = static_cast<std::int16_t>(Between(0, 210));
    c.ValueOffset = static_cast<std::int16_t>(Between(0, 210));
    c.Channels = static_cast<std::int16_t>(4 * Between(0, 3));
    c.CurrentFactor = Between(0, 1) == 0 ? 1.0F : 1000.0F;
    c.VoltageFactor = std::array{1.0F, 1000.0F, 1000000.0F}[Between(0, 2)];
    return c;
  }

 private:
  std::size_t Between(std::size_t low, std::size_t high) {
    return std::uniform_int_distribution<std::size_t>(low, high)(engine_);
  }

  std::mt19937 engine_{61850};
};

TEST(SignalBuilder, BuildsRandomFramesAsAPlainImplementationDoes) {
  CaptureBench bench;
  bench.Present.BaseSamples = 1;
  RandomCases cases;
  int silent = 0;
  int whole = 0;
  int unlocated = 0;

  for (int n = 0; n < 5000; ++n) {
    const Case c = cases.Next();
    SCOPED_TRACE(n);
    bench.Block.Rebuild(1);
    bench.State.SampleCountOffset = {c.CountOffset, c.CountOffset};
    bench.State.ValueOffset = {c.ValueOffset, c.ValueOffset};
    bench.State.ChannelCount = c.Channels;
    bench.Present.CurrentUnitFactor = c.CurrentFactor;
    bench.Present.VoltageUnitFactor = c.VoltageFactor;
    const auto cells = CellsOf(c.Frame, c.Upper);
    bool signalOk = false;
    bool untouched = true;

    bench.Builder.BuildingSignals(0, cells, signalOk);
    bench.Builder.BuildingSignals2(0, cells, untouched);

    const Row first = FirstStream(c);
    const Row second = SecondStream(c);
    ASSERT_EQ(bench.Block.SampleCount(0), first.Count);
    ASSERT_EQ(signalOk, first.SignalOk);
    ASSERT_EQ(bench.Block.SampleCount2(0), second.Count);
    ASSERT_TRUE(untouched);
    for (std::size_t k = 0; k < 8; ++k) {
      ASSERT_EQ(bench.Block.SignalValues.Row(0)[k], first.Values[k]) << k;
      ASSERT_EQ(bench.Block.SignalValues2.Row(0)[k], second.Values[k]) << k;
    }
    (first.SignalOk ? whole : silent) += 1;
    if (c.ValueOffset == 0) ++unlocated;
  }
  // The cases must reach both verdicts, or they compare little.
  EXPECT_GT(silent, 500);
  EXPECT_GT(whole, 500);
  EXPECT_GT(unlocated, 10);
  EXPECT_TRUE(bench.Dialogs.Shown.empty());
}

}  // namespace
