#include "sv/asdu.h"

#include "sv/element.h"

namespace sv {

namespace {

constexpr std::uint8_t AsduTag = 0x30;
constexpr std::uint8_t SvIdTag = 0x80;
constexpr std::uint8_t DatsetTag = 0x81;
constexpr std::uint8_t SmpCntTag = 0x82;
constexpr std::uint8_t ConfRevTag = 0x83;
constexpr std::uint8_t RefrTmTag = 0x84;
constexpr std::uint8_t SmpSynchTag = 0x85;
constexpr std::uint8_t SmpRateTag = 0x86;
constexpr std::uint8_t SampleTag = 0x87;
constexpr std::uint8_t SmpModTag = 0x88;
constexpr std::uint8_t GmIdentityTag = 0x89;

constexpr std::size_t SmpCntOctets = 2;
constexpr std::size_t UtcTimeOctets = 8;
constexpr std::size_t OctetsAValue = 4;
constexpr std::size_t OctetsAChannel = 8;

std::string_view Text(Octets octets) {
  return {reinterpret_cast<const char*>(octets.data()), octets.size()};
}

/// Some senders leave leading zeros away, so fewer octets are taken too.
template <typename Width>
bool Take(Octets content, std::optional<Width>& field) {
  if (content.empty() || content.size() > sizeof(Width)) return false;
  field = static_cast<Width>(Number(content));
  return true;
}

/// False where the field has another size than it may have.
bool TakeField(const Element& element, Octets content, Asdu& asdu) {
  switch (element.Tag) {
    case SvIdTag:
      asdu.SvId = Text(content);
      return true;
    case DatsetTag:
      asdu.Datset = Text(content);
      return true;
    case SmpCntTag:
      asdu.SmpCntAt = element.At;
      // Who follows a counter reads both of its octets.
      return content.size() == SmpCntOctets && Take(content, asdu.SmpCnt);
    case ConfRevTag:
      return Take(content, asdu.ConfRev);
    case RefrTmTag:
      asdu.RefrTm = content;
      return content.size() == UtcTimeOctets;
    case SmpSynchTag:
      asdu.SmpSynchAt = element.At;
      return Take(content, asdu.SmpSynch);
    case SmpRateTag:
      return Take(content, asdu.SmpRate);
    case SampleTag:
      asdu.SamplesAt = element.At;
      asdu.Samples = content;
      return true;
    case SmpModTag:
      return Take(content, asdu.SmpMod);
    case GmIdentityTag:
      asdu.GmIdentity = content;
      return true;
    default:
      // A field of a later edition.
      return true;
  }
}

}  // namespace

std::int32_t Asdu::Value(std::size_t channel) const {
  const Octets octets = Samples.subspan(channel * OctetsAChannel, OctetsAValue);
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(Number(octets)));
}

std::uint32_t Asdu::Quality(std::size_t channel) const {
  const Octets octets = Samples.subspan(channel * OctetsAChannel + OctetsAValue, OctetsAValue);
  return static_cast<std::uint32_t>(Number(octets));
}

bool AsduReader::Fail(Fault fault, std::size_t at) {
  why_ = fault;
  faultAt_ = at;
  return false;
}

bool AsduReader::Next(Asdu& asdu) {
  if (why_ != Fault::None) return false;
  if (frame_.Why != Fault::None) return Fail(frame_.Why, frame_.FaultAt);
  asdu = {};
  if (at_ == frame_.AsdusEnd) {
    if (count_ != frame_.AsduCount) Fail(Fault::OtherAsduCount, at_);
    return false;
  }
  Element element;
  const Fault fault = ReadElement(frame_.Bytes, at_, frame_.AsdusEnd, element);
  if (fault != Fault::None) return Fail(fault, at_);
  if (element.Tag != AsduTag) return Fail(Fault::NoAsdu, at_);
  if (!ReadFields(asdu, element.At, element.End())) return false;
  at_ = element.End();
  ++count_;
  return true;
}

bool AsduReader::ReadFields(Asdu& asdu, std::size_t at, std::size_t end) {
  const std::size_t begin = at;
  Element element;
  bool named = false;
  for (; at < end; at = element.End()) {
    const Fault fault = ReadElement(frame_.Bytes, at, end, element);
    if (fault != Fault::None) return Fail(fault, at);
    if (!TakeField(element, element.Content(frame_.Bytes), asdu)) return Fail(Fault::FieldSize, at);
    named = named || element.Tag == SvIdTag;
  }
  if (!named) return Fail(Fault::NoSvId, begin);
  return Complete(asdu, begin);
}

bool AsduReader::Complete(const Asdu& asdu, std::size_t at) {
  if (!asdu.SmpCnt) return Fail(Fault::NoSmpCnt, at);
  if (asdu.SamplesAt == 0) return Fail(Fault::NoSamples, at);
  return true;
}

}  // namespace sv
