// Writes frames of all forms into a folder, from which the fuzzer makes others.

#include <vector>

#include "fuzz/seed_folder.h"
#include "support/sv_frame.h"

namespace {

using support::SvFrame;

std::vector<support::FrameBytes> Seeds() {
  return {
      SvFrame().Bytes(),
      SvFrame("MU01").Tagged().AllRaw(818085).Bytes(),
      SvFrame("MU01").Vlan(4, 1, 0x88A8).Vlan(0, 5).Bytes(),
      SvFrame("MU01").Asdus(2).Bytes(),
      SvFrame("MU01").Asdus(8).Simulated().Bytes(),
      SvFrame("MU01").Channels(4).Bytes(),
      SvFrame("MU01").Channels(20).Quality(3, 0x801).Bytes(),
      SvFrame("").FieldBeforeCount({0x81, 2, 'D', 'S'}).Bytes(),
      SvFrame("MU01")
          .FieldBehindSamples({0x84, 8, 1, 2, 3,    4, 5, 6, 7, 8, 0x86, 2, 0x12, 0xC0,
                               0x88, 2, 0, 1, 0x89, 8, 9, 8, 7, 6, 5,    4, 3,    2})
          .Trailer({0, 1, 0xA0, 122, 0x88, 0xFB})
          .Bytes(),
  };
}

}  // namespace

int main(int count, char** arguments) {
  return fuzz::WriteSeeds(count, arguments, [](fuzz::SeedFolder& folder) {
    for (const support::FrameBytes& seed : Seeds()) folder.Put(seed);
  });
}
