// Drawing of the picture views into their real widgets.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <cmath>
#include <numbers>

#include "bench_platform.h"
#include "desktop/binding/graph_view.h"
#include "desktop/binding/guard.h"
#include "desktop/services/qt_program.h"
#include "desktop/widgets/picture_pad.h"
#include "measure/phase_analysis.h"
#include "measure/scope_view.h"

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
  app.Main.Text1[2].Text = std::to_string(state.range(0));
  desktop::QtProgram program([] {}, nullptr);
  desktop::Guard guard(scene.Dialogs, program);
  desktop::GraphView graph(app.Main.CWGraph1, guard, nullptr);
  graph.resize(820, 620);
  graph.show();
  bench::ViewParts parts(scene);
  subroutines::ScopeView scope(app.Main, app.Main, parts.Stored, parts.Context);
  Fill(app.Block.SignalValues);
  for ([[maybe_unused]] auto _ : state) scope.PlotBlock("Auto");
}
BENCHMARK(Plot)->Name("PlotBlock")->Arg(400)->Unit(benchmark::kMillisecond);
BENCHMARK(Plot)->Name("PlotBlock/Large")->Arg(100000)->Unit(benchmark::kMillisecond);

void UpdatePhases(benchmark::State& state) {
  NeedWindowSystem();
  desktop::PicturePad pad(nullptr);
  pad.Place({0, 0}, 430);
  pad.show();
  bench::BenchScene scene("MU_ALPHA", "", &pad);
  formroutines::Application& app = scene.App;
  bench::ViewParts parts(scene);
  subroutines::PhasorDiagram diagram(app.Main, pad, app.State, app.Present, scene.Numbers);
  subroutines::PhaseAnalysis phases(app.Main, diagram, parts.Context);
  Fill(app.Block.SignalValues);
  for ([[maybe_unused]] auto _ : state) {
    phases.UpdatePhases();
    pad.repaint();
  }
}
BENCHMARK(UpdatePhases)->Unit(benchmark::kMillisecond);

}  // namespace
