#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <string_view>

namespace fuzz {

/// The folder into which a program writes its seeds, from which the fuzzer makes other inputs.
class SeedFolder {
 public:
  explicit SeedFolder(const std::filesystem::path& folder) : folder_(folder) {
    std::filesystem::create_directories(folder);
  }

  void Put(std::string_view bytes) {
    std::ofstream file(folder_ / ("seed" + std::to_string(++count_)), std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    good_ = good_ && file;
  }
  void Put(std::span<const std::uint8_t> bytes) {
    Put(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
  }
  bool Good() const { return good_; }

 private:
  std::filesystem::path folder_;
  int count_ = 0;
  bool good_ = true;
};

/// A program of seeds: its argument is the folder. `write(folder)` puts them there.
template <typename Write>
int WriteSeeds(int count, char** arguments, Write write) {
  if (count != 2) {
    std::fprintf(stderr, "usage: %s FOLDER\n", arguments[0]);
    return 2;
  }
  SeedFolder folder(arguments[1]);
  write(folder);
  return folder.Good() ? 0 : 1;
}

}  // namespace fuzz
