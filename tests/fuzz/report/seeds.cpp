// Writes frames of all forms, and IDs that overlap.

#include <string>

#include "fuzz/seed_folder.h"
#include "support/sv_frame.h"

namespace {

using support::SvFrame;

std::string Input(const support::FrameBytes& frame) {
  return '\0' + std::string(frame.begin(), frame.end());
}

}  // namespace

int main(int count, char** arguments) {
  return fuzz::WriteSeeds(count, arguments, [](fuzz::SeedFolder& folder) {
    for (const char* id : {"MU01", "8-", "\x18\x02", "\x88\x50 x", ""}) {
      for (const std::size_t channels : {0U, 8U, 20U}) {
        SvFrame frame = SvFrame(id).Channels(channels).Count(4799).AllRaw(818085).Quality(1, 0x801);
        folder.Put(Input(frame.Bytes()));
        folder.Put(Input(frame.Tagged().Asdus(2).Bytes()));
        folder.Put(Input(frame.FieldBehindSamples({0x84, 8, 1, 2, 3, 4, 5, 6, 7, 8}).Bytes()));
      }
    }
    folder.Put(
        std::string("\xFF\x03"
                    "AB "
                    "\x02"
                    "CA"
                    "\x05"
                    "B C A"));
  });
}
