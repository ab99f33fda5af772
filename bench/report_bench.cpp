// Reading a frame into the rows of the report.

#include <benchmark/benchmark.h>

#include "bench_platform.h"
#include "report/report_analysis.h"
#include "support/sv_frame.h"

namespace {

void ReportAnalyse(benchmark::State& state) {
  bench::BenchScene scene("MU_ALPHA", "");
  formroutines::Application& app = scene.App;
  packetroutines::ReportAnalysis analysis(app.Windows.Main, app.Windows.Main, app.Config.Settings,
                                          app.Config.Present, scene.Code,
                                          {scene.Events, scene.Dialogs, scene.Runtime});
  support::FrameBytes frame = support::SvFrame("MU_ALPHA").Bytes();
  frame.resize(static_cast<std::size_t>(state.range(0)), 0x11);
  packetroutines::PacketBytes bytes;
  bytes.Redim(static_cast<std::int16_t>(frame.size()));
  bytes.Copy(frame);
  for ([[maybe_unused]] auto _ : state) {
    std::string id;
    benchmark::DoNotOptimize(analysis.ReportAnalyse(bytes, id));
  }
}
BENCHMARK(ReportAnalyse)->Arg(130)->Arg(1522)->Arg(9000)->Unit(benchmark::kMicrosecond);

}  // namespace
