// The way of a frame from the capture object to the block arrays; items a second are frames a
// second.

#include <benchmark/benchmark.h>

#include <cmath>
#include <numbers>
#include <vector>

#include "bench_platform.h"
#include "capture/capture_session.h"
#include "support/sv_frame.h"

namespace {

using Frames = std::vector<std::vector<std::uint8_t>>;

constexpr int FrameCount = 12000;

/// Three seconds of a stream: currents of 707 A and voltages of 70.7 kV RMS.
Frames MakeFrames(const std::string& id) {
  Frames frames;
  for (int i = 0; i < FrameCount; ++i) {
    support::SvFrame frame(id);
    frame.Count(static_cast<std::uint16_t>(i % 4000));
    for (std::size_t k = 0; k < 8; ++k) {
      const double angle =
          2 * std::numbers::pi * (i % 80) / 80.0 - static_cast<double>(k % 4) * 2.0943951;
      frame.Raw(k, static_cast<std::int32_t>((k < 4 ? 1e6 : 1e7) * std::sin(angle)));
    }
    frames.push_back(frame.Bytes());
  }
  return frames;
}

const Frames& FirstStream() {
  static const Frames frames = MakeFrames("MU_ALPHA");
  return frames;
}

const Frames& BothStreams() {
  static const Frames frames = [] {
    Frames both;
    const Frames second = MakeFrames("MU_BRAVO");
    for (std::size_t i = 0; i < second.size(); ++i) {
      both.push_back(FirstStream()[i]);
      both.push_back(second[i]);
    }
    return both;
  }();
  return frames;
}

void Feed(benchmark::State& state, bench::BenchScene& scene, const Frames& frames) {
  std::size_t next = 0;
  for ([[maybe_unused]] auto _ : state) {
    scene.Receive(frames[next]);
    if (++next == frames.size()) next = 0;
  }
  state.SetItemsProcessed(state.iterations());
}

void Values(benchmark::State& state) {
  bench::BenchScene scene("MU_ALPHA", "");
  scene.App.Windows.Main.CWButton4.Value = true;
  Feed(state, scene, FirstStream());
}
BENCHMARK(Values)->Name("FramePath/Values");

void TwoStreams(benchmark::State& state) {
  bench::BenchScene scene("MU_ALPHA", "MU_BRAVO");
  scene.App.Windows.Main.CWButton4.Value = true;
  Feed(state, scene, BothStreams());
}
BENCHMARK(TwoStreams)->Name("FramePath/TwoStreams");

/// A recording of every frame, with the files that it writes; they are begun anew before they fill
/// the disk.
void Record(benchmark::State& state, const char* format, const Frames& frames) {
  constexpr std::size_t FramesOfFile = 400'000;
  bench::BenchScene scene("MU_ALPHA", "MU_BRAVO");
  scene.App.Config.Settings.StoragePath = scene.Disk.DefaultFolder();
  scene.App.Config.Settings.FileFormat = format;
  scene.App.Windows.Main.CWButton3.Value = true;
  std::size_t next = 0;
  std::size_t received = 0;
  for ([[maybe_unused]] auto _ : state) {
    scene.Receive(frames[next]);
    if (++next == frames.size()) next = 0;
    if (++received % FramesOfFile == 0) scene.Disk.EmptyFolder();
  }
  state.SetItemsProcessed(state.iterations());
}

void RecordingText(benchmark::State& state) {
  Record(state, "TXT", FirstStream());
}
BENCHMARK(RecordingText)->Name("FramePath/Recording/Text");

void RecordingTwoStreams(benchmark::State& state) {
  Record(state, "TXT", BothStreams());
}
BENCHMARK(RecordingTwoStreams)->Name("FramePath/Recording/TextOfTwoStreams");

void RecordingComtrade(benchmark::State& state) {
  Record(state, "COMTRADE", FirstStream());
}
BENCHMARK(RecordingComtrade)->Name("FramePath/Recording/Comtrade");

/// What the recorder costs without the writing.
void RecordingNothing(benchmark::State& state) {
  Record(state, "none", BothStreams());
}
BENCHMARK(RecordingNothing)->Name("FramePath/Recording/Nothing");

void RealTime(benchmark::State& state) {
  bench::BenchScene scene("MU_ALPHA", "");
  scene.App.Windows.Main.CWButton4.Value = true;
  scene.App.Windows.Main.Check5.Value = 1;
  Feed(state, scene, FirstStream());
}
BENCHMARK(RealTime)->Name("FramePath/RealTime");

}  // namespace
