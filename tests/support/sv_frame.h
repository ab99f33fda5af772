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
  bool tagged_ = false;
  std::vector<std::uint8_t> trailer_;
  std::vector<std::uint8_t> before_;
};

}  // namespace support
