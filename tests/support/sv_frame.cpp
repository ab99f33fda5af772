#include "support/sv_frame.h"

namespace support {

namespace {

using Bytes = std::vector<std::uint8_t>;

void Append(Bytes& to, const Bytes& from) {
  to.insert(to.end(), from.begin(), from.end());
}

/// A BER field with a short or a one-byte long length.
Bytes Field(std::uint8_t tag, const Bytes& content) {
  Bytes field{tag};
  if (content.size() > 127) field.push_back(0x81);
  field.push_back(static_cast<std::uint8_t>(content.size()));
  Append(field, content);
  return field;
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
  tagged_ = true;
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

FrameBytes SvFrame::Bytes() const {
  using Octets = std::vector<std::uint8_t>;
  Octets samples;
  for (std::size_t channel = 0; channel < channels_; ++channel) {
    const std::uint32_t value =
        channel < raw_.size() ? static_cast<std::uint32_t>(raw_[channel]) : 0x55555555U;
    for (const int shift : {24, 16, 8, 0}) {
      samples.push_back(static_cast<std::uint8_t>(value >> shift));
    }
    Append(samples, Octets(4, 0));
  }

  Octets asdu = Field(0x80, Octets(id_.begin(), id_.end()));
  Append(asdu, before_);
  Append(asdu, Field(0x82, {static_cast<std::uint8_t>(count_ >> 8),
                            static_cast<std::uint8_t>(count_ & 0xFF)}));
  Append(asdu, Field(0x83, {0, 0, 0, 1}));
  Append(asdu, Field(0x85, {synch_}));
  Append(asdu, Field(0x87, samples));

  Octets pdu = Field(0x80, {1});
  Append(pdu, Field(0xA2, Field(0x30, asdu)));
  const Octets apdu = Field(0x60, pdu);

  FrameBytes frame{0x01, 0x0C, 0xCD, 0x04, 0x00, 0x01, 0x02, 0x00, 0x00, 0x00, 0x00, 0x07};
  if (tagged_) Append(frame, {0x81, 0x00, 0x80, 0x00});
  const auto length = static_cast<std::uint16_t>(apdu.size() + 8);
  Append(frame, {0x88, 0xBA, 0x40, 0x00, static_cast<std::uint8_t>(length >> 8),
                 static_cast<std::uint8_t>(length & 0xFF), 0, 0, 0, 0});
  Append(frame, apdu);
  Append(frame, trailer_);
  return frame;
}

}  // namespace support
