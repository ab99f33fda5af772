#include "support/sv_frame.h"

namespace support {

namespace {

using Bytes = std::vector<std::uint8_t>;

void Append(Bytes& to, const Bytes& from) {
  to.insert(to.end(), from.begin(), from.end());
}

/// A BER field with a length in the shortest form.
Bytes Field(std::uint8_t tag, const Bytes& content) {
  Bytes field{tag};
  if (content.size() > 255) {
    field.push_back(0x82);
    field.push_back(static_cast<std::uint8_t>(content.size() >> 8));
  } else if (content.size() > 127) {
    field.push_back(0x81);
  }
  field.push_back(static_cast<std::uint8_t>(content.size()));
  Append(field, content);
  return field;
}

Bytes Word16(std::uint16_t word) {
  return {static_cast<std::uint8_t>(word >> 8), static_cast<std::uint8_t>(word & 0xFF)};
}

Bytes Word32(std::uint32_t word) {
  Bytes octets = Word16(static_cast<std::uint16_t>(word >> 16));
  Append(octets, Word16(static_cast<std::uint16_t>(word & 0xFFFF)));
  return octets;
}

}  // namespace

SvFrame& SvFrame::Count(std::uint16_t smpCnt) {
  count_ = smpCnt;
  return *this;
}

SvFrame& SvFrame::Raw(std::size_t channel, std::int32_t value) {
  raw_.at(channel) = value;
  return *this;
}

SvFrame& SvFrame::AllRaw(std::int32_t value) {
  raw_.fill(value);
  return *this;
}

SvFrame& SvFrame::Channels(std::size_t count) {
  channels_ = count;
  return *this;
}

SvFrame& SvFrame::Tagged() {
  return Vlan(4, 0);
}

SvFrame& SvFrame::Vlan(std::uint8_t priority, std::uint16_t id, std::uint16_t type) {
  Append(tags_, Word16(type));
  Append(tags_, Word16(static_cast<std::uint16_t>(priority << 13 | id)));
  return *this;
}

SvFrame& SvFrame::Addresses(const std::array<std::uint8_t, 12>& octets) {
  addresses_ = octets;
  return *this;
}

SvFrame& SvFrame::Quality(std::size_t channel, std::uint32_t word) {
  quality_.at(channel) = word;
  return *this;
}

SvFrame& SvFrame::Simulated() {
  simulated_ = true;
  return *this;
}

SvFrame& SvFrame::Asdus(std::size_t count) {
  asdus_ = count;
  return *this;
}

SvFrame& SvFrame::FieldBehindSamples(std::vector<std::uint8_t> bytes) {
  behind_ = std::move(bytes);
  return *this;
}

SvFrame& SvFrame::Synch(std::uint8_t smpSynch) {
  synch_ = smpSynch;
  return *this;
}

SvFrame& SvFrame::Trailer(std::vector<std::uint8_t> bytes) {
  trailer_ = std::move(bytes);
  return *this;
}

SvFrame& SvFrame::FieldBeforeCount(std::vector<std::uint8_t> bytes) {
  before_ = std::move(bytes);
  return *this;
}

FrameBytes SvFrame::Asdu(std::size_t index) const {
  FrameBytes samples;
  for (std::size_t channel = 0; channel < channels_; ++channel) {
    const bool usual = channel < raw_.size();
    Append(samples, Word32(usual ? static_cast<std::uint32_t>(raw_[channel]) : 0x55555555U));
    Append(samples, Word32(usual ? quality_[channel] : 0));
  }
  FrameBytes asdu = Field(0x80, FrameBytes(id_.begin(), id_.end()));
  Append(asdu, before_);
  Append(asdu, Field(0x82, Word16(static_cast<std::uint16_t>(count_ + index))));
  Append(asdu, Field(0x83, {0, 0, 0, 1}));
  Append(asdu, Field(0x85, {synch_}));
  Append(asdu, Field(0x87, samples));
  Append(asdu, behind_);
  return Field(0x30, asdu);
}

FrameBytes SvFrame::Bytes() const {
  FrameBytes sequence;
  for (std::size_t index = 0; index < asdus_; ++index) Append(sequence, Asdu(index));
  FrameBytes pdu = Field(0x80, {static_cast<std::uint8_t>(asdus_)});
  Append(pdu, Field(0xA2, sequence));
  const FrameBytes apdu = Field(0x60, pdu);

  FrameBytes frame(addresses_.begin(), addresses_.end());
  Append(frame, tags_);
  Append(frame, {0x88, 0xBA, 0x40, 0x00});
  Append(frame, Word16(static_cast<std::uint16_t>(apdu.size() + 8)));
  Append(frame, Word16(simulated_ ? 0x8000 : 0));
  Append(frame, {0, 0});
  Append(frame, apdu);
  Append(frame, trailer_);
  return frame;
}

}  // namespace support
