#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/sv_frame.h"

namespace report_tests {

/// A sampled-value frame with all that the standard allows and the usual profile leaves out:
/// several units of data, optional fields, lengths of two bytes, any VLAN tag.
struct AsduFrame {
  using Bytes = std::vector<std::uint8_t>;

  std::string Id = "MU01";
  std::size_t Asdus = 1;
  std::size_t Channels = 8;
  std::uint16_t Count = 0;
  std::uint8_t Synch = 2;
  std::string DataSet;
  Bytes RefreshTime;
  bool RateAndMode = false;
  /// The VLAN tag's second half; none where it is empty.
  Bytes Tag;

  support::FrameBytes Get() const {
    Bytes sequence;
    for (std::size_t i = 0; i < Asdus; ++i) {
      Append(sequence, Field(0x30, Asdu(static_cast<std::uint16_t>(Count + i))));
    }
    Bytes pdu = Field(0x80, {static_cast<std::uint8_t>(Asdus)});
    Append(pdu, Field(0xA2, sequence));
    support::FrameBytes frame{0x01, 0x0C, 0xCD, 0x04, 0x00, 0x01, 0x02, 0x00, 0x00, 0x00, 0x00, 7};
    if (!Tag.empty()) {
      Append(frame, {0x81, 0x00});
      Append(frame, Tag);
    }
    Append(frame, {0x88, 0xBA, 0x40, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00});
    Append(frame, Field(0x60, pdu));
    return frame;
  }

 private:
  static void Append(Bytes& to, const Bytes& from) {
    to.insert(to.end(), from.begin(), from.end());
  }
  static Bytes Field(std::uint8_t tag, const Bytes& content) {
    Bytes field{tag};
    if (content.size() > 255)
      Append(field, {0x82, static_cast<std::uint8_t>(content.size() >> 8U)});
    if (content.size() > 127 && content.size() < 256) field.push_back(0x81);
    field.push_back(static_cast<std::uint8_t>(content.size()));
    Append(field, content);
    return field;
  }
  Bytes Asdu(std::uint16_t count) const {
    Bytes asdu = Field(0x80, Bytes(Id.begin(), Id.end()));
    if (!DataSet.empty()) Append(asdu, Field(0x81, Bytes(DataSet.begin(), DataSet.end())));
    Append(asdu, Field(0x82, {static_cast<std::uint8_t>(count >> 8U),
                              static_cast<std::uint8_t>(count & 0xFFU)}));
    Append(asdu, Field(0x83, {0, 0, 0, 1}));
    if (!RefreshTime.empty()) Append(asdu, Field(0x84, RefreshTime));
    Append(asdu, Field(0x85, {Synch}));
    if (RateAndMode) Append(asdu, Field(0x86, {0x0F, 0xA0}));
    Append(asdu, Field(0x87, Bytes(Channels * 8, 0)));
    if (RateAndMode) Append(asdu, Field(0x88, {0x00, 0x01}));
    return asdu;
  }
};

}  // namespace report_tests
