// Frames of all kinds, a user and a failing computer, in whatever order, go through the whole
// program on a played platform.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "fuzz/packet/player.h"

namespace {

std::uint64_t framesSoFar = 0;

/// ./fuzz.sh adds up what its jobs tell.
void TellFrames() {
  std::fprintf(stderr, "frames through the packet event: %llu\n",
               static_cast<unsigned long long>(framesSoFar));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const int told = std::atexit(TellFrames);
  static_cast<void>(told);
  // Where many frames are wanted, the start of a program for each input is what costs.
  static const char* const wanted = std::getenv("FRAMES");
  const auto least = wanted == nullptr ? 0 : std::strtoull(wanted, nullptr, 10);
  fuzz::Player player(fuzz::Script({data, size}), least);
  player.Play();
  framesSoFar += player.Frames();
  return 0;
}
