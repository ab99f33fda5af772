#include "sv/frame.h"

#include <algorithm>

#include "sv/element.h"

namespace sv {

namespace {

constexpr std::uint16_t SampledValues = 0x88BA;
constexpr std::uint16_t CustomerTag = 0x8100;
constexpr std::uint16_t ServiceTag = 0x88A8;
constexpr std::size_t TagOctets = 4;
/// AppID, length, two reserved words.
constexpr std::size_t PduHeadOctets = 8;

constexpr std::uint8_t SavPdu = 0x60;
constexpr std::uint8_t NoAsdu = 0x80;
constexpr std::uint8_t SecurityTag = 0x81;
constexpr std::uint8_t SeqAsdu = 0xA2;

constexpr std::size_t PrpOctets = 6;
constexpr std::uint16_t PrpSuffix = 0x88FB;

std::uint16_t Word(Octets bytes, std::size_t at) {
  return static_cast<std::uint16_t>(bytes[at] << 8U | bytes[at + 1]);
}

Fault Fail(Frame& frame, Fault fault, std::size_t at) {
  frame.Why = fault;
  frame.FaultAt = at;
  return fault;
}

/// The result is the place behind the ethertype.
std::size_t ReadHead(Frame& frame) {
  const Octets bytes = frame.Bytes;
  if (bytes.size() < HeadOctets) {
    Fail(frame, Fault::HeadCut, bytes.size());
    return 0;
  }
  std::copy_n(bytes.begin(), frame.Destination.size(), frame.Destination.begin());
  std::copy_n(bytes.begin() + 6, frame.Source.size(), frame.Source.begin());
  std::size_t at = HeadOctets - 2;
  while (frame.TagCount < frame.Tags.size()) {
    const std::uint16_t type = Word(bytes, at);
    if (type != CustomerTag && type != ServiceTag) break;
    if (bytes.size() - at < TagOctets + 2) {
      Fail(frame, Fault::HeadCut, bytes.size());
      return 0;
    }
    frame.Tags[frame.TagCount++] = {type, Word(bytes, at + 2)};
    at += TagOctets;
  }
  frame.Ethertype = Word(bytes, at);
  at += 2;
  if (frame.Ethertype != SampledValues) Fail(frame, Fault::OtherEthertype, at - 2);
  return at;
}

/// What stands behind the head counts in the size that the trailer tells, itself included.
void ReadPrp(Frame& frame, std::size_t headEnd) {
  const Octets bytes = frame.Bytes;
  if (frame.Length != bytes.size() || bytes.size() < headEnd + PrpOctets) return;
  const std::size_t at = bytes.size() - PrpOctets;
  const std::uint16_t lanAndSize = Word(bytes, at + 2);
  const std::uint16_t lan = lanAndSize >> 12U;
  if (Word(bytes, at + 4) != PrpSuffix || (lan != 0xAU && lan != 0xBU)) return;
  if ((lanAndSize & 0x0FFFU) != bytes.size() - headEnd) return;
  frame.Prp = PrpTrailer{Word(bytes, at), lan == 0xAU ? 'A' : 'B'};
}

/// The result is where the PDU ends; 0 behind a fault.
std::size_t ReadPduHead(Frame& frame, std::size_t at) {
  const Octets bytes = frame.Bytes;
  if (bytes.size() - at < PduHeadOctets) {
    Fail(frame, Fault::PduHeadCut, bytes.size());
    return 0;
  }
  frame.AppId = Word(bytes, at);
  frame.PduLength = Word(bytes, at + 2);
  frame.Reserved1 = Word(bytes, at + 4);
  frame.Reserved2 = Word(bytes, at + 6);
  if (frame.PduLength < PduHeadOctets || frame.PduLength > bytes.size() - at) {
    Fail(frame, Fault::PduCut, at + 2);
    return 0;
  }
  frame.Behind = std::max(frame.Length, bytes.size()) - at - frame.PduLength;
  return at + frame.PduLength;
}

Fault ReadPdu(Frame& frame, std::size_t at, std::size_t end) {
  Element element;
  if (const Fault fault = ReadElement(frame.Bytes, at, end, element); fault != Fault::None) {
    return Fail(frame, fault, at);
  }
  if (element.Tag != SavPdu) return Fail(frame, Fault::NoSavPdu, at);
  end = element.End();
  bool counted = false;
  for (at = element.At; at < end; at = element.End()) {
    if (const Fault fault = ReadElement(frame.Bytes, at, end, element); fault != Fault::None) {
      return Fail(frame, fault, at);
    }
    switch (element.Tag) {
      case NoAsdu:
        if (element.Size == 0 || element.Size > sizeof frame.AsduCount) {
          return Fail(frame, Fault::FieldSize, at);
        }
        frame.AsduCount = static_cast<std::uint32_t>(Number(element.Content(frame.Bytes)));
        counted = true;
        break;
      case SecurityTag:
        frame.Security = element.Size;
        break;
      case SeqAsdu:
        frame.AsdusTagAt = element.TagAt;
        frame.AsdusAt = element.At;
        frame.AsdusEnd = element.End();
        break;
      default:
        break;
    }
  }
  if (!counted) return Fail(frame, Fault::NoAsduCount, end);
  if (frame.AsdusAt == 0) return Fail(frame, Fault::NoAsduSequence, end);
  return Fault::None;
}

}  // namespace

Frame ReadFrame(Octets bytes, std::size_t length) {
  Frame frame;
  frame.Bytes = bytes;
  frame.Length = length;
  const std::size_t at = ReadHead(frame);
  if (frame.Why != Fault::None) return frame;
  ReadPrp(frame, at);
  const std::size_t end = ReadPduHead(frame, at);
  if (frame.Why != Fault::None) return frame;
  ReadPdu(frame, at + PduHeadOctets, end);
  return frame;
}

}  // namespace sv
