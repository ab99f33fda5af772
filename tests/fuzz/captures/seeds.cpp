// Writes capture files of both formats with each of the commands.

#include <filesystem>
#include <string>

#include "adapters/capture_file.h"
#include "fuzz/seed_folder.h"
#include "support/real_files.h"
#include "support/sv_frame.h"

namespace {

using support::SvFrame;

template <typename File>
std::string ContentOf(const File& file) {
  const support::TemporaryFolder folder;
  file.Save(folder.File("seed"));
  return support::BytesOf(folder.File("seed"));
}

std::string Older(adapter_tests::Stamps stamps) {
  adapter_tests::PcapFile file(stamps);
  for (std::uint16_t i = 0; i < 20; ++i) {
    file.Add(7, 250U * i, SvFrame("MU01").Count(i).AllRaw(1000 * i).Bytes());
    file.Add(7, 250U * i, SvFrame("MU02").Tagged().Count(i).Bytes(), 9000);
  }
  return ContentOf(file);
}

std::string Newer() {
  adapter_tests::PcapngFile file;
  for (std::uint16_t i = 0; i < 20; ++i) {
    file.Add(250'000ULL * i, SvFrame("MU01").Count(i).Asdus(2).Bytes());
  }
  return ContentOf(file);
}

}  // namespace

int main(int count, char** arguments) {
  return fuzz::WriteSeeds(count, arguments, [](fuzz::SeedFolder& folder) {
    for (char command = 0; command < 8; ++command) {
      folder.Put(command + Older(adapter_tests::Stamps::Microseconds));
      folder.Put(command + Older(adapter_tests::Stamps::Nanoseconds));
      folder.Put(command + Newer());
    }
    adapter_tests::PcapFile damaged;
    damaged.Add(0, 0, adapter_tests::Marked(1)).AddNonsense();
    folder.Put('\7' + ContentOf(damaged));
  });
}
