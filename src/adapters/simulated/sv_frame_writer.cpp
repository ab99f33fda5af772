#include "adapters/simulated/sv_frame_writer.h"

#include <initializer_list>

#include "platform/stream_format.h"

namespace adapters {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint32_t EtherType = 0x88BA;
constexpr std::uint32_t ApplicationId = 0x4000;
constexpr std::uint32_t Synchronised = 2;
/// A value and its quality word.
constexpr std::size_t ChannelBytes = 8;
/// The quality bit of a neutral that the merging unit computes from the phases.
constexpr std::uint32_t DerivedQuality = 0x2000;

void Put16(Bytes& to, std::uint32_t value) {
  to.push_back(static_cast<std::uint8_t>(value >> 8U));
  to.push_back(static_cast<std::uint8_t>(value));
}

void Put32(Bytes& to, std::uint32_t value) {
  Put16(to, value >> 16U);
  Put16(to, value);
}

void Append(Bytes& to, std::span<const std::uint8_t> bytes) {
  to.insert(to.end(), bytes.begin(), bytes.end());
}

/// A field of at most 127 bytes, which is what every field of such a frame stays below.
Bytes Field(std::uint8_t tag, const Bytes& content) {
  Bytes field;
  field.reserve(2 + content.size());
  field.push_back(tag);
  field.push_back(static_cast<std::uint8_t>(content.size()));
  Append(field, content);
  return field;
}

Bytes Joined(std::initializer_list<Bytes> parts) {
  Bytes joined;
  for (const Bytes& part : parts) Append(joined, part);
  return joined;
}

Bytes EmptyData() {
  Bytes data;
  for (std::size_t channel = 0; channel < platform::channels::Count; ++channel) {
    Put32(data, 0);
    Put32(data, platform::channels::IsNeutral(channel) ? DerivedQuality : 0);
  }
  return data;
}

Bytes Asdu(const std::string& svId) {
  Bytes revision;
  Put32(revision, 1);
  return Field(
      0x30, Joined({Field(0x80, Bytes(svId.begin(), svId.end())), Field(0x82, {0, 0}),
                    Field(0x83, revision), Field(0x85, {Synchronised}), Field(0x87, EmptyData())}));
}

void Patch32(Bytes& bytes, std::size_t at, std::uint32_t value) {
  for (std::size_t i = 0; i < 4; ++i) {
    bytes[at + i] = static_cast<std::uint8_t>(value >> (24U - 8U * i));
  }
}

}  // namespace

SvFrameWriter::SvFrameWriter(const SvStreamIdentity& identity) {
  const Bytes unit = Field(0x60, Joined({Field(0x80, {1}), Field(0xA2, Asdu(identity.SvId))}));
  Append(frame_, identity.Destination);
  Append(frame_, identity.Source);
  Put16(frame_, 0x8100);
  Put16(frame_, 4U << 13U);  // priority 4, no VLAN
  Put16(frame_, EtherType);
  Put16(frame_, ApplicationId);
  constexpr std::size_t HeaderBytes = 8;  // from the application identifier to the reserved words
  Put16(frame_, static_cast<std::uint32_t>(HeaderBytes + unit.size()));
  Put32(frame_, 0);
  Append(frame_, unit);
  dataAt_ = frame_.size() - platform::channels::Count * ChannelBytes;
  // Back over the data's header, the synchronisation (3 bytes) and the revision (6) to the count.
  countAt_ = dataAt_ - 2 - 3 - 6 - 2;
}

void SvFrameWriter::Write(std::uint16_t sampleCount, const SvSample& sample) {
  frame_[countAt_] = static_cast<std::uint8_t>(sampleCount >> 8U);
  frame_[countAt_ + 1] = static_cast<std::uint8_t>(sampleCount);
  for (std::size_t channel = 0; channel < sample.size(); ++channel) {
    Patch32(frame_, dataAt_ + channel * ChannelBytes, static_cast<std::uint32_t>(sample[channel]));
  }
}

}  // namespace adapters
