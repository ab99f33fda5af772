// Drawing of the picture views into their real widgets.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <cmath>
#include <numbers>

#include "bench_platform.h"
#include "desktop/binding/graph_view.h"
#include "desktop/widgets/picture_pad.h"
#include "measure/phase_analysis.h"
#include "measure/scope_view.h"
#include "platform/loop/guard.h"

namespace {

/// The application that the widgets need; they draw off the screen.
void NeedWindowSystem() {
  static int count = 1;
  static char name[] = "vornik_bench";
  static char* names[] = {name, nullptr};
  static QApplication application(count, names);
}

/// A block of three-phase sets.
void Fill(platform::BlockMatrix& block) {
  for (std::int32_t row = 0; row < block.Rows(); ++row) {
    const auto cells = block.Row(row);
    for (std::size_t k = 0; k < cells.size(); ++k) {
      const double turn = row / 80.0 - static_cast<double>(k % 4) / 3.0;
      cells[k] = (k < 4 ? 400 : 63) * std::sin(2 * std::numbers::pi * turn);
    }
  }
}

void Plot(benchmark::State& state) {
  NeedWindowSystem();
  bench::BenchScene scene("MU_ALPHA", "");
  formroutines::Application& app = scene.App;
  app.Windows.Main.Text1[2].Text = std::to_string(state.range(0));
  platform::RunningProgram program([] {}, [](int) {});
  platform::Guard guard(scene.Dialogs, program);
  desktop::GraphView graph(app.Windows.Main.CWGraph1, guard, nullptr);
  graph.resize(820, 620);
  graph.show();
  Fill(app.Acquisition.Block.SignalValues);
  for ([[maybe_unused]] auto _ : state) app.LiveViews.Scope.PlotBlock("Auto");
}
BENCHMARK(Plot)->Name("PlotBlock")->Arg(400)->Unit(benchmark::kMillisecond);
BENCHMARK(Plot)->Name("PlotBlock/Large")->Arg(100000)->Unit(benchmark::kMillisecond);

void UpdatePhases(benchmark::State& state) {
  NeedWindowSystem();
  bench::BenchScene scene("MU_ALPHA", "");
  formroutines::Application& app = scene.App;
  desktop::PicturePad pad(app.Windows.Main.phasordiagram, nullptr);
  pad.Place({0, 0}, 430);
  pad.show();
  Fill(app.Acquisition.Block.SignalValues);
  for ([[maybe_unused]] auto _ : state) {
    app.LiveViews.Phases.UpdatePhases();
    pad.repaint();
  }
}
BENCHMARK(UpdatePhases)->Unit(benchmark::kMillisecond);

}  // namespace
