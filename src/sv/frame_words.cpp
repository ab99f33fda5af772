#include "sv/frame_words.h"

#include <algorithm>

#include "base/hex_text.h"
#include "sv/asdu_words.h"

namespace sv {

namespace {

constexpr std::size_t BytesALine = 16;

using Lines = std::vector<WordLine>;

std::string Bytes(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

std::string TagWords(const VlanTag& tag) {
  std::string words =
      platform::HexWordText(tag.Type) + ", priority " + std::to_string(tag.Priority());
  if (tag.DropEligible()) words += ", drop eligible";
  return words + ", VLAN " + std::to_string(tag.Vlan());
}

void TellHead(const Frame& frame, Lines& lines) {
  std::string length = Bytes(frame.Length);
  if (frame.Length > frame.Bytes.size()) {
    length += ", of which the first " + std::to_string(frame.Bytes.size()) + " are here";
  }
  lines.push_back({"Frame", length});
  if (frame.Bytes.size() < HeadOctets) return;
  lines.push_back({"Destination", platform::HexAddressText(frame.Destination)});
  lines.push_back({"Source", platform::HexAddressText(frame.Source)});
  for (std::size_t i = 0; i < frame.TagCount; ++i) {
    const char* title = frame.TagCount == 1 ? "VLAN tag" : i == 0 ? "Outer tag" : "Inner tag";
    lines.push_back({title, TagWords(frame.Tags[i])});
  }
  if (frame.Why != Fault::HeadCut)
    lines.push_back({"Ethertype", platform::HexWordText(frame.Ethertype)});
}

void TellPdu(const Frame& frame, Lines& lines) {
  lines.push_back({"APPID", platform::HexWordText(frame.AppId)});
  lines.push_back({"Length", Bytes(frame.PduLength)});
  lines.push_back({"Reserved 1", platform::HexWordText(frame.Reserved1)});
  lines.push_back({"Reserved 2", platform::HexWordText(frame.Reserved2)});
  lines.push_back(
      {"Simulation", frame.Simulated() ? "yes, these are not values in operation" : "no"});
  if (frame.Security) lines.push_back({"security", Bytes(*frame.Security)});
  if (frame.AsduCount > 0 || frame.Why == Fault::None) {
    lines.push_back({"noASDU", std::to_string(frame.AsduCount)});
  }
}

void TellTrailer(const Frame& frame, Lines& lines) {
  if (frame.Behind > 0) lines.push_back({"Behind the PDU", Bytes(frame.Behind)});
  if (!frame.Prp) return;
  lines.push_back({"PRP", std::string("LAN ") + frame.Prp->Lan + ", sequence " +
                              std::to_string(frame.Prp->Sequence)});
}

bool IsBehindPduHead(Fault fault) {
  return fault != Fault::HeadCut && fault != Fault::OtherEthertype && fault != Fault::PduHeadCut;
}

std::string WhereAndWhy(std::size_t at, Fault why) {
  return "ends at " + PlaceWords(at) + ": " + Words(why);
}

}  // namespace

std::vector<WordLine> FrameWords(const Frame& frame) {
  Lines lines{{"Structure", WholeStructure}};
  TellHead(frame, lines);
  if (IsBehindPduHead(frame.Why)) TellPdu(frame, lines);
  TellTrailer(frame, lines);
  AsduReader reader(frame);
  Asdu asdu;
  while (reader.Next(asdu)) TellAsdu(asdu, reader.Count(), lines);
  if (reader.Why() == Fault::None) return lines;
  // What was read of an ASDU in front of the fault.
  if (frame.Why == Fault::None) TellAsdu(asdu, reader.Count() + 1, lines);
  lines.front().Value = WhereAndWhy(reader.FaultAt(), reader.Why());
  return lines;
}

std::vector<std::string> DumpWords(Octets bytes) {
  constexpr std::size_t FigureWidth = 3;
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < bytes.size(); at += BytesALine) {
    std::string line = PlaceWords(at).substr(2) + ' ';
    const std::size_t width = line.size() + BytesALine * FigureWidth + 2;
    std::string characters;
    for (const std::uint8_t byte : bytes.subspan(at, std::min(BytesALine, bytes.size() - at))) {
      line += ' ' + platform::HexByteText(byte);
      characters += byte >= ' ' && byte <= '~' ? static_cast<char>(byte) : '.';
    }
    line.resize(width, ' ');
    lines.push_back(line + characters);
  }
  return lines;
}

std::string PlaceWords(std::size_t at) {
  return platform::HexWordText(static_cast<std::uint16_t>(at));
}

}  // namespace sv
