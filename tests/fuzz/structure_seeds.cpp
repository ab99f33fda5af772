// Writes frames of all forms into a folder, from which the fuzzer makes others.

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

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
  if (count != 2) return 2;
  const std::filesystem::path folder = arguments[1];
  std::filesystem::create_directories(folder);
  int number = 0;
  for (const support::FrameBytes& seed : Seeds()) {
    std::ofstream file(folder / ("seed" + std::to_string(++number)), std::ios::binary);
    file.write(reinterpret_cast<const char*>(seed.data()),
               static_cast<std::streamsize>(seed.size()));
    if (!file) return 1;
  }
  return 0;
}
