#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>
#include <vector>

#include "support/real_files.h"

namespace adapter_tests {

using Bytes = std::vector<std::uint8_t>;

/// A capture file as it is written byte by byte, with the machine's byte order.
struct FileBytes {
  std::string Content;

  FileBytes& Put16(std::uint16_t value) { return PutValue(value); }
  FileBytes& Put32(std::uint32_t value) { return PutValue(value); }
  FileBytes& PutBytes(const Bytes& bytes) {
    Content.append(bytes.begin(), bytes.end());
    return *this;
  }
  void Save(const std::filesystem::path& file) const {
    std::ofstream(file, std::ios::binary) << Content;
  }

 private:
  template <typename T>
  FileBytes& PutValue(T value) {
    Content.append(reinterpret_cast<const char*>(&value), sizeof value);
    return *this;
  }
};

enum class Stamps { Microseconds, Nanoseconds };

/// The older format: one header, then each frame behind its time and lengths.
class PcapFile {
 public:
  explicit PcapFile(Stamps stamps = Stamps::Microseconds, std::uint32_t linkType = 1) {
    bytes_.Put32(stamps == Stamps::Nanoseconds ? 0xA1B23C4DU : 0xA1B2C3D4U);
    bytes_.Put16(2).Put16(4).Put32(0).Put32(0).Put32(65535).Put32(linkType);
  }
  /// `part` is the fraction of the second in the unit of the file.
  PcapFile& Add(std::uint32_t seconds, std::uint32_t part, const Bytes& frame,
                std::uint32_t trueLength = 0) {
    const auto stored = static_cast<std::uint32_t>(frame.size());
    bytes_.Put32(seconds).Put32(part).Put32(stored).Put32(trueLength == 0 ? stored : trueLength);
    bytes_.PutBytes(frame);
    return *this;
  }
  PcapFile& CutOff(std::size_t count) {
    bytes_.Content.resize(bytes_.Content.size() - count);
    return *this;
  }
  /// A frame whose header claims more bytes than any frame has.
  PcapFile& AddNonsense() {
    bytes_.Put32(0).Put32(0).Put32(0x7FFFFFFF).Put32(0x7FFFFFFF);
    return *this;
  }
  void Save(const std::filesystem::path& file) const { bytes_.Save(file); }

 private:
  FileBytes bytes_;
};

/// The newer format: blocks, with time stamps in nanoseconds.
class PcapngFile {
 public:
  PcapngFile() {
    bytes_.Put32(0x0A0D0D0A).Put32(28).Put32(0x1A2B3C4D).Put16(1).Put16(0);
    bytes_.Put32(0xFFFFFFFF).Put32(0xFFFFFFFF).Put32(28);
    // The interface: Ethernet, with the option that sets a resolution of 10^-9 s.
    bytes_.Put32(1).Put32(32).Put16(1).Put16(0).Put32(65535);
    bytes_.Put16(9).Put16(1).PutBytes({9, 0, 0, 0}).Put16(0).Put16(0).Put32(32);
  }
  PcapngFile& Add(std::uint64_t nanoseconds, const Bytes& frame) {
    const auto stored = static_cast<std::uint32_t>(frame.size());
    const std::uint32_t padded = (stored + 3) / 4 * 4;
    bytes_.Put32(6).Put32(32 + padded).Put32(0);
    bytes_.Put32(static_cast<std::uint32_t>(nanoseconds >> 32U));
    bytes_.Put32(static_cast<std::uint32_t>(nanoseconds));
    bytes_.Put32(stored).Put32(stored).PutBytes(frame).PutBytes(Bytes(padded - stored));
    bytes_.Put32(32 + padded);
    return *this;
  }
  void Save(const std::filesystem::path& file) const { bytes_.Save(file); }

 private:
  FileBytes bytes_;
};

/// A frame of sampled values' ethertype whose last byte is `mark`; `vlan` below 0 leaves out the
/// tag.
inline Bytes Marked(std::uint8_t mark, int vlan = -1, std::size_t size = 64) {
  Bytes frame;
  const auto put = [&](std::initializer_list<int> bytes) {
    for (const int byte : bytes) frame.push_back(static_cast<std::uint8_t>(byte));
  };
  put({0x01, 0x0C, 0xCD, 0x04, 0, 1, 0x02, 0, 0, 0, 0, 7});
  if (vlan >= 0) put({0x81, 0x00, 0x80 | vlan >> 8, vlan & 0xFF});
  put({0x88, 0xBA, 0x40, 0x00});
  frame.resize(size);
  frame.back() = mark;
  return frame;
}

/// A folder of the scene's own, gone with it.
struct ScratchFolder {
  support::TemporaryFolder Folder;
  std::filesystem::path Path = Folder.Path();
};

}  // namespace adapter_tests
