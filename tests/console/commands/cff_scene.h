#pragma once

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "console_scene.h"

namespace console {

/// A single COMTRADE file as far as these scenes look into it; the reader in Python holds it
/// against the whole standard.
struct Single {
  explicit Single(const std::string& bytes) {
    std::istringstream text(bytes);
    for (std::string line; std::getline(text, line);) {
      Head.push_back(line.substr(0, line.find('\r')));
      if (Head.back().starts_with("--- file type: DAT")) break;
    }
    const std::size_t at = bytes.find("--- file type: DAT BINARY32");
    Data = bytes.substr(bytes.find('\n', at) + 1);
  }
  std::int32_t Number(std::size_t at) const {
    std::int32_t number = 0;
    std::memcpy(&number, Data.data() + at, sizeof number);
    return number;
  }
  /// Of a sample, from 0 on, and a channel.
  std::int32_t Value(std::size_t sample, std::size_t channel) const {
    return Number(sample * RowBytes() + 8 + 4 * channel);
  }
  std::size_t RowBytes() const { return 8 + 4 * static_cast<std::size_t>(std::stoi(Head[2])); }
  std::size_t Samples() const { return Data.size() / RowBytes(); }

  std::vector<std::string> Head;
  std::string Data;
};

/// Stations recorded straight from a played bus, and what is in the folder then.
class RecordCffScene : public ConsoleScene {
 protected:
  RecordCffScene() { std::filesystem::create_directory(Data); }

  static constexpr std::int32_t MissingValue = std::numeric_limits<std::int32_t>::min();

  ExitCode Record(const Words& more = {"--station", "MU01"}) {
    Words words{"record", "bus.pcap", "--format", "cff", "--folder", Data};
    words.insert(words.end(), more.begin(), more.end());
    return Run(words);
  }
  std::vector<std::string> Names() const { return NamesIn(Data); }
  Single Read(const std::string& name) const { return Single(support::BytesOf(Data + "/" + name)); }
  /// The only file's.
  Single ReadOnly() const {
    EXPECT_EQ(Names().size(), 1U);
    return Read(Names().at(0));
  }

  const std::string Data = Folder.File("data");
  const std::string Name = "SV record 09.03.2024 14-05-07.cff";
};

}  // namespace console
