// A frame read by its structure, down to the quality of each value.

#include <benchmark/benchmark.h>

#include "support/sv_frame.h"
#include "sv/asdu.h"

namespace {

void Structure(benchmark::State& state) {
  const support::FrameBytes bytes = support::SvFrame("MU_ALPHA")
                                        .Vlan(4, 1)
                                        .Asdus(static_cast<std::size_t>(state.range(0)))
                                        .AllRaw(818085)
                                        .Bytes();
  for ([[maybe_unused]] auto _ : state) {
    const sv::Frame frame = sv::ReadFrame(bytes, bytes.size());
    sv::AsduReader reader(frame);
    sv::Asdu asdu;
    std::uint32_t quality = 0;
    while (reader.Next(asdu)) {
      for (std::size_t k = 0; k < asdu.Channels(); ++k) quality |= asdu.Quality(k);
    }
    benchmark::DoNotOptimize(quality);
  }
}
BENCHMARK(Structure)->Arg(1)->Arg(2)->Arg(8);

}  // namespace
