#include "live/scenes/frame_reader.h"

#include <algorithm>

namespace live {

namespace {

constexpr std::size_t Margin = 64;

/// The frame as digits, with zeros up to the expected length.
std::string Digits(const Frame& frame, std::size_t bytes) {
  constexpr const char* All = "0123456789ABCDEF";
  std::string digits;
  for (std::size_t i = 0; i < bytes; ++i) {
    const unsigned byte = i < frame.size() ? frame[i] : 0U;
    digits += {All[byte / 16], All[byte % 16]};
  }
  return digits;
}

unsigned NumberAt(const std::string& digits, std::size_t at) {
  return static_cast<unsigned>(std::stoul(digits.substr(at, 2), nullptr, 16));
}

/// The tag of the ID: the first 80 behind the first digits of a field of one byte, 8001.
std::size_t IdTag(const std::string& digits) {
  return digits.find("80", digits.find("8001") + 2);
}

/// The first ASDU's place, or the last one's, in the first bytes of a frame.
std::optional<SamplePlace> LastIn(const Frame& frame, std::size_t bytes) {
  SamplePlace place;
  for (std::size_t i = 0; i < bytes && i + 1 < frame.size(); ++i) {
    const unsigned length = frame[i + 1];
    if (frame[i] == 0x82 && length == 2) place.Count = i + 2;
    if (frame[i] != 0x87 || (length != 32 && length != 64 && length != 96)) continue;
    place.Data = i + 2;
    place.Channels = length / 8;
  }
  if (place.Data == 0) return std::nullopt;
  return place;
}

/// How long an element is whose tag stands at a place, and where what it holds begins.
std::size_t LengthAt(const Frame& frame, std::size_t at) {
  if (frame[at + 1] == 0x82) return frame[at + 2] * 256U + frame[at + 3];
  return frame[at + 1] == 0x81 ? frame[at + 2] : frame[at + 1];
}
std::size_t ContentAt(const Frame& frame, std::size_t at) {
  return at + 2 + (frame[at + 1] > 0x80 ? frame[at + 1] - 0x80U : 0U);
}

}  // namespace

std::string FrameReader::Id() const {
  const std::string digits = Digits(Bytes, Expected);
  const std::size_t tag = IdTag(digits);
  std::string id;
  for (std::size_t k = 1; k <= NumberAt(digits, tag + 2); ++k) {
    id += static_cast<char>(NumberAt(digits, tag + 2 + 2 * k));
  }
  return id;
}

std::string FrameReader::SvId() const {
  constexpr std::size_t Addresses = 12;
  constexpr std::size_t EthertypeAndHead = 10;
  std::size_t at = Addresses;
  while (Bytes[at] == 0x81 && Bytes[at + 1] == 0x00) at += 4;
  at += EthertypeAndHead;
  // Into each of these in turn, past what stands beside it.
  for (const unsigned tag : {0x60U, 0xA2U, 0x30U, 0x80U}) {
    std::size_t content = ContentAt(Bytes, at);
    for (; Bytes[at] != tag; content = ContentAt(Bytes, at)) at = content + LengthAt(Bytes, at);
    if (tag == 0x80U)
      return {Bytes.begin() + content, Bytes.begin() + content + LengthAt(Bytes, at)};
    at = content;
  }
  return {};
}

std::string FrameReader::Synchronisation() const {
  const std::string digits = Digits(Bytes, Expected);
  const std::size_t count = digits.find("82", IdTag(digits) + 2) + 2;
  return digits.substr(digits.find("85", count + 2) + 4, 2);
}

std::string FrameReader::Address(std::size_t from) const {
  const std::string digits = Digits(Bytes, Expected);
  std::string address;
  for (std::size_t i = from; i < from + 6; ++i) {
    address += (i > from ? ":" : "") + digits.substr(2 * i, 2);
  }
  return address;
}

std::string FrameReader::Ethertype() const {
  return "0x" + Digits(Bytes, Expected).substr(24, 4);
}

std::optional<SamplePlace> PlaceOf(const Frame& frame, std::size_t expected) {
  // A shorter frame than expected is looked at up to its own margin first, so that its samples are
  // not searched where that can be helped.
  const auto own = LastIn(frame, frame.size() - std::min(frame.size(), Margin));
  return own ? own : LastIn(frame, expected - std::min(expected, Margin));
}

Row RowOf(const Frame& frame, const SamplePlace& place) {
  Row row;
  row.Count = frame[place.Count] * 256U + frame[place.Count + 1];
  for (std::size_t channel = 0; channel < std::min<std::size_t>(place.Channels, 8); ++channel) {
    std::uint32_t raw = 0;
    for (std::size_t i = 0; i < 4; ++i) raw = raw << 8U | frame[place.Data + 8 * channel + i];
    row.Values[channel] = static_cast<std::int32_t>(raw) / (channel < 4 ? 1000.0 : 100000.0);
  }
  return row;
}

}  // namespace live
