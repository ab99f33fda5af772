#include <benchmark/benchmark.h>

#include <string>

#include "bench_platform.h"
#include "measure/values_view.h"

namespace {

/// One complete block: eight estimates and sixteen labels.
void BlockComplete(benchmark::State& state) {
  bench::BenchScene scene("MU_ALPHA", "");
  formroutines::Application& app = scene.App;
  bench::ViewParts parts(scene);
  subroutines::ValuesView values(app.Main, app.Main, app.Main, parts.Stored, parts.Context);
  app.Settings.ACDC = true;
  for (std::int32_t row = 0; row < app.Block.SignalValues.Rows(); ++row) {
    for (double& cell : app.Block.SignalValues.Row(row)) cell = 0.37 * row - 60;
  }
  for ([[maybe_unused]] auto _ : state) values.CalculateValues();
}
BENCHMARK(BlockComplete);

/// A keystroke in a field of the Setup view: every setting goes to the store, and the block arrays
/// are made anew. The second argument tells whether blocks of both streams were received before.
void Keystroke(benchmark::State& state) {
  bench::BenchScene scene("MU_ALPHA", "");
  formroutines::Application& app = scene.App;
  app.Main.Text1[forms::setup_field::Samplings].Text = std::to_string(state.range(0));
  const auto fill = [](platform::BlockMatrix& block) {
    for (std::int32_t row = 0; row < block.Rows(); ++row) block.Row(row)[0] = row;
  };
  for ([[maybe_unused]] auto _ : state) {
    if (state.range(1) != 0) {
      state.PauseTiming();
      fill(app.Block.SignalValues);
      fill(app.Block.SignalValues2);
      for (std::int32_t row = 0; row < app.Block.SampleCount.Count(); ++row) {
        app.Block.SampleCount(row) = row;
      }
      state.ResumeTiming();
    }
    app.Main.Text1[forms::setup_field::FilterCondition].Text = std::string("and vlan 7");
  }
}
BENCHMARK(Keystroke)
    ->ArgsProduct({{400, 50'000, 400'000, packetroutines::BlockArrays::MaximumRows}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

}  // namespace
