#include <benchmark/benchmark.h>

#include "bench_platform.h"
#include "measure/values_view.h"

namespace {

/// One complete block: eight estimates and sixteen labels.
void BlockComplete(benchmark::State& state) {
  bench::BenchScene scene("MU_ALPHA", "");
  formroutines::Application& app = scene.App;
  subroutines::SettingsFile file(scene.Store, scene.Numbers, app.Settings);
  packetroutines::CaptureSession capture(scene.Capture, app.Main, app.Settings, app.State,
                                         scene.Events, scene.Dialogs, scene.Program);
  subroutines::ValuesView values(app.Main, app.Settings, app.Session, file, app.State, app.Block,
                                 capture, scene.Events, scene.Numbers);
  app.Settings.ACDC = true;
  for (std::int32_t row = 0; row < app.Block.SignalValues.Rows(); ++row) {
    for (double& cell : app.Block.SignalValues.Row(row)) cell = 0.37 * row - 60;
  }
  for (auto _ : state) values.CalculateValues();
}
BENCHMARK(BlockComplete);

}  // namespace
