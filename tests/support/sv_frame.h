#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace support {

/// A frame from the first byte of the destination address.
using FrameBytes = std::vector<std::uint8_t>;

/// A sampled-value frame as a merging unit sends it (IEC 61850-9-2LE), built field by field.
class SvFrame {
 public:
  explicit SvFrame(std::string id = "MU01") : id_(std::move(id)) {}

  SvFrame& Count(std::uint16_t smpCnt);
  /// Raw value of a channel: 0 to 3 currents in mA, 4 to 7 voltages in tens of mV.
  SvFrame& Raw(std::size_t channel, std::int32_t value);
  SvFrame& AllRaw(std::int32_t value);
  /// Channels in seqData; those beyond the eighth carry 0x55 bytes.
  SvFrame& Channels(std::size_t count);
  SvFrame& Tagged();
  /// A tag of this priority, 0 to 7, and VLAN; further ones stand behind it.
  SvFrame& Vlan(std::uint8_t priority, std::uint16_t id, std::uint16_t type = 0x8100);
  /// From the first of the two addresses on.
  SvFrame& Addresses(const std::array<std::uint8_t, 12>& octets);
  /// Quality word of a channel.
  SvFrame& Quality(std::size_t channel, std::uint32_t word);
  /// The simulation bit is set.
  SvFrame& Simulated();
  /// So many ASDUs, whose counters go up by one.
  SvFrame& Asdus(std::size_t count);
  /// A field behind the samples, tag and length included.
  SvFrame& FieldBehindSamples(std::vector<std::uint8_t> bytes);
  /// smpSynch: 0 not synchronised, 1 by a local clock, 2 by a global one.
  SvFrame& Synch(std::uint8_t smpSynch);
  /// Bytes behind the samples.
  SvFrame& Trailer(std::vector<std::uint8_t> bytes);
  /// A field in front of smpCnt, tag and length included.
  SvFrame& FieldBeforeCount(std::vector<std::uint8_t> bytes);

  FrameBytes Bytes() const;

 private:
  std::string id_;
  std::uint16_t count_ = 0;
  std::uint8_t synch_ = 2;
  std::array<std::int32_t, 8> raw_{};
  std::size_t channels_ = 8;
  std::array<std::uint32_t, 8> quality_{};
  std::array<std::uint8_t, 12> addresses_{0x01, 0x0C, 0xCD, 0x04, 0x00, 0x01,
                                          0x02, 0x00, 0x00, 0x00, 0x00, 0x07};
  std::vector<std::uint8_t> tags_;
  bool simulated_ = false;
  std::size_t asdus_ = 1;
  std::vector<std::uint8_t> trailer_;
  std::vector<std::uint8_t> before_;
  std::vector<std::uint8_t> behind_;

  FrameBytes Asdu(std::size_t index) const;
};

}  // namespace support
