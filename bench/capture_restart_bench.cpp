// Stop and start of an interface with unchanged settings, as between two blocks of a live view.

#include <benchmark/benchmark.h>

#include <cstdlib>

#include "adapters/interfaces/pcap_source.h"
#include "base/failure.h"
#include "live/wire.h"

namespace {

void CaptureRestart(benchmark::State& state) {
  if (const std::string reason = live::WhyNoWire(); !reason.empty()) {
    state.SkipWithError(reason.c_str());
    return;
  }
  live::LayWire();
  adapters::PcapSource source(live::NearEnd, "");
  try {
    source.Prepare({static_cast<std::int32_t>(state.range(0)), true, "ether proto 0x88ba"});
    source.Start();
    for ([[maybe_unused]] auto _ : state) {
      source.Stop();
      source.Start();
    }
  } catch (const platform::Failure& failure) {
    state.SkipWithError(failure.Text().c_str());
  }
  source.Release();
  live::CutWire();
}
BENCHMARK(CaptureRestart)->Arg(262144)->Arg(33554432)->Unit(benchmark::kMillisecond);

}  // namespace
