// A ring of 4000 samples on its way to disk, and whole recordings from played frames.

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <string>

#include "bench_platform.h"
#include "recorder/writing/writing.h"

namespace {

/// The formats with a ring of sampled values: sines of 707 A and 70.7 kV RMS in whole raw counts,
/// with noise, so that no two numbers are alike.
struct WriterScene : bench::BenchPlatform {
  WriterScene() {
    Settings.StoragePath = Disk.DefaultFolder();
    Settings.FilterContent = {"MU_ALPHA", "MU_BRAVO"};
    State.RecordFileName = "SV record 09.03.2024 14-05-07.txt";
    Rings.Reserve(packetroutines::RecordRings::Cells);
    std::mt19937 random(1);
    for (std::int16_t i = 0; i < packetroutines::RecordRings::Cells; ++i) {
      Rings.RecordCount(i) = i;
      for (std::size_t k = 0; k < 8; ++k) {
        const double wave = std::sin(i * 0.0785 - static_cast<double>(k % 4) * 2.0943951);
        const double raw =
            std::round((k < 4 ? 1e6 : 1e7) * wave + static_cast<double>(random() % 1000));
        Rings.RecordChannel[k](i) = raw / (k < 4 ? 1e3 : 1e5);
      }
    }
  }

  /// Begins the file anew before it fills the disk.
  void KeepSmall(std::int64_t most) {
    const std::string path = RecordPath(Writing.Context, 0);
    if (Disk.FileSize(path) > most) Disk.DeleteFile(path);
  }

  config::Settings Settings;
  config::RunSettings Present;
  packetroutines::AcquisitionState State;
  packetroutines::RecordRings Rings;
  forms::RecorderControls Recorder;
  packetroutines::Writing Writing{Recorder,
                                  Settings,
                                  Present,
                                  State,
                                  Rings,
                                  {.Usual = {Events, Dialogs, Runtime},
                                   .Code = Code,
                                   .Numbers = Numbers,
                                   .Files = Disk,
                                   .Calendar = Calendar,
                                   .Pointer = Pointer,
                                   .Links = Links,
                                   .Timers = Timers,
                                   .Sleep = Sleep,
                                   .Sync = nullptr}};
};

constexpr std::int64_t MostBytes = 32'000'000;

void Text(benchmark::State& state) {
  WriterScene scene;
  for ([[maybe_unused]] auto _ : state) {
    scene.Writing.Text.Write(0);
    scene.KeepSmall(MostBytes);
  }
}
BENCHMARK(Text)->Name("RecordRing/Text")->Unit(benchmark::kMillisecond);

void Comtrade(benchmark::State& state) {
  WriterScene scene;
  scene.State.BlockCount = 18;
  for ([[maybe_unused]] auto _ : state) {
    scene.Writing.Comtrade.Write(0);
    scene.KeepSmall(MostBytes);
  }
}
BENCHMARK(Comtrade)->Name("RecordRing/Comtrade")->Unit(benchmark::kMillisecond);

void Worksheet(benchmark::State& state) {
  constexpr int RingsOfSheet = 8;
  WriterScene scene;
  packetroutines::WorksheetFormat& sheet = scene.Writing.Worksheet;
  int ring = 0;
  for ([[maybe_unused]] auto _ : state) {
    sheet.Write(0);
    if (++ring % RingsOfSheet != 0) continue;
    sheet.End();
    sheet.Begin();
  }
}
BENCHMARK(Worksheet)->Name("RecordRing/Worksheet")->Unit(benchmark::kMillisecond);

}  // namespace
