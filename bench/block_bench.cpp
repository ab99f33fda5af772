#include <benchmark/benchmark.h>

#include <string>

#include "bench_platform.h"

namespace {

/// One complete block: eight estimates and sixteen labels.
void BlockComplete(benchmark::State& state) {
  bench::BenchScene scene("MU_ALPHA", "");
  formroutines::Application& app = scene.App;
  app.Config.Settings.ACDC = true;
  for (std::int32_t row = 0; row < app.Acquisition.Block.SignalValues.Rows(); ++row) {
    for (double& cell : app.Acquisition.Block.SignalValues.Row(row)) cell = 0.37 * row - 60;
  }
  for ([[maybe_unused]] auto _ : state) app.LiveViews.Values.CalculateValues();
}
BENCHMARK(BlockComplete);

/// A keystroke in a field of the Setup view: every setting goes to the store, and the block arrays
/// are made anew. The second argument tells whether blocks of both streams were received before.
void Keystroke(benchmark::State& state) {
  bench::BenchScene scene("MU_ALPHA", "");
  formroutines::Application& app = scene.App;
  app.Windows.Main.Text1[forms::setup_field::Samplings].Text = std::to_string(state.range(0));
  const auto fill = [](platform::BlockMatrix& block) {
    for (std::int32_t row = 0; row < block.Rows(); ++row) block.Row(row)[0] = row;
  };
  for ([[maybe_unused]] auto _ : state) {
    if (state.range(1) != 0) {
      state.PauseTiming();
      fill(app.Acquisition.Block.SignalValues);
      fill(app.Acquisition.Block.SignalValues2);
      for (std::int32_t row = 0; row < app.Acquisition.Block.SampleCount.Count(); ++row) {
        app.Acquisition.Block.SampleCount(row) = row;
      }
      state.ResumeTiming();
    }
    app.Windows.Main.Text1[forms::setup_field::FilterCondition].Text = std::string("and vlan 7");
  }
}
BENCHMARK(Keystroke)
    ->ArgsProduct({{400, 50'000, 400'000, packetroutines::BlockArrays::MaximumRows}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

}  // namespace
