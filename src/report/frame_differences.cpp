#include "report/frame_differences.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/hex_text.h"
#include "base/shown_text.h"
#include "sv/asdu.h"
#include "sv/element.h"
#include "sv/frame_words.h"

namespace packetroutines {

namespace {

using Lines = std::vector<std::string>;

/// The last state of synchronisation that has a text in its row.
constexpr std::size_t LastInRow = 2;

std::string Quoted(std::string_view octets, const platform::CodePage& code) {
  return '"' + ShownOctets(octets, code) + '"';
}

/// The first ASDU, as far as it can be read.
sv::Asdu FirstAsdu(const sv::Frame& frame) {
  sv::Asdu asdu;
  if (frame.Why == sv::Fault::None) sv::AsduReader(frame).Next(asdu);
  return asdu;
}

void CompareTag(const sv::Frame& frame, Lines& lines) {
  if (frame.TagCount == 0) return;
  lines.push_back("Ethertype: the row shows the VLAN tag. It is " +
                  platform::HexWordText(frame.Ethertype) + ".");
  if (frame.AppId == 0 && frame.PduLength == 0) return;
  lines.push_back("AppID: the row shows priority and VLAN of the tag. It is " +
                  platform::HexWordText(frame.AppId) + ".");
}

/// `first` is the first byte of the length in the frame.
void CompareLength(const char* title, std::string_view digits, std::uint8_t first,
                   std::size_t length, Lines& lines) {
  const bool isLong = first >= 0x80U;
  if (digits == platform::HexByteText(first) && !isLong) return;
  const std::string why = digits == platform::HexByteText(first)
                              ? ", with which a length in the long form begins. It is "
                              : ", which is not the length. It is ";
  lines.push_back(std::string(title) + ": the row shows " + std::string(digits) + why +
                  std::to_string(length) + " bytes.");
}

void CompareLengths(const SearchedFrame& searched, const sv::Frame& frame, Lines& lines) {
  if (frame.Why != sv::Fault::None) return;
  CompareLength("ASDU", searched.SequenceLength(), frame.Bytes[frame.AsdusTagAt + 1],
                frame.AsdusEnd - frame.AsdusAt, lines);
  sv::Element first;
  if (sv::ReadElement(frame.Bytes, frame.AsdusAt, frame.AsdusEnd, first) != sv::Fault::None) return;
  CompareLength("ASDU 1", searched.FirstAsduLength(), frame.Bytes[first.TagAt + 1], first.Size,
                lines);
}

void CompareSynchronisation(std::size_t searched, const sv::Asdu& asdu, Lines& lines) {
  if (asdu.SmpSynch && searched == *asdu.SmpSynch && searched <= LastInRow) return;
  const std::string row =
      searched > LastInRow ? "is left as it was" : "shows " + std::to_string(searched);
  lines.push_back("Sample Sync: the row " + row + ". " +
                  (asdu.SmpSynch ? "smpSynch is " + sv::SynchWords(*asdu.SmpSynch)
                                 : "The frame has no smpSynch") +
                  ".");
}

}  // namespace

std::string ShownOctets(std::string_view octets, const platform::CodePage& code) {
  return platform::Escaped(code.ToUtf8(octets));
}

std::string MisreadId(const SearchedFrame& searched, const sv::Frame& frame,
                      const platform::CodePage& code) {
  const sv::Asdu first = FirstAsdu(frame);
  const std::string id = searched.StationId();
  if (first.SvId.data() == nullptr || first.SvId == id) return {};
  return "ID: the search read " + Quoted(id, code) + ". svID is " + Quoted(first.SvId, code) + ".";
}

std::vector<std::string> Differences(const SearchedFrame& searched, const sv::Frame& frame,
                                     const platform::CodePage& code) {
  Lines lines;
  CompareTag(frame, lines);
  CompareLengths(searched, frame, lines);
  const sv::Asdu first = FirstAsdu(frame);
  const std::string id = MisreadId(searched, frame, code);
  if (!id.empty()) lines.push_back(id);
  if (first.SmpCnt && searched.SampleCount() != *first.SmpCnt) {
    lines.push_back("Sample Count: the row shows " + std::to_string(searched.SampleCount()) +
                    ". smpCnt is " + std::to_string(*first.SmpCnt) + ".");
  }
  if (first.SamplesAt != 0) CompareSynchronisation(searched.Synchronisation(), first, lines);
  return lines;
}

}  // namespace packetroutines
