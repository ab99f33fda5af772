// What the reader of a frame's structure tells of each bus, compared with what tshark tells.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "base/hex_text.h"
#include "live/played_bus.h"
#include "live/scenes/wire_tap.h"
#include "support/real_files.h"
#include "sv/asdu.h"
#include "sv/frame.h"

namespace {

using live::Frame;
using live::PlayedBus;

/// The columns that are compared, in both readings in this order. Where there are several of a
/// field in a frame, they stand in one column.
constexpr const char* Columns[] = {"eth.dst",
                                   "eth.src",
                                   "vlan.priority",
                                   "vlan.dei",
                                   "vlan.id",
                                   "sv.appid",
                                   "sv.length",
                                   "sv.reserve1",
                                   "sv.reserve2",
                                   "sv.noASDU",
                                   "sv.svID",
                                   "sv.datSet",
                                   "sv.smpCnt",
                                   "sv.confRev",
                                   "sv.refrTm",
                                   "sv.smpSynch",
                                   "sv.smpRate",
                                   "sv.smpMod",
                                   "sv.seqData",
                                   "prp.trailer.prp_sequence_nr",
                                   "prp.trailer.prp_lan"};

/// A line of columns; each begins with its values.
class Line {
 public:
  void Column(const std::vector<std::string>& values) {
    for (std::size_t i = 0; i < values.size(); ++i) text_ += (i > 0 ? "|" : "") + values[i];
    text_ += '\t';
  }
  std::string Take() const { return text_.substr(0, text_.size() - 1); }

 private:
  std::string text_;
};

std::string Lower(std::string text) {
  for (char& letter : text) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return text;
}

std::string Hex(sv::Octets octets) {
  std::string digits;
  platform::WriteHexText(octets, digits);
  return Lower(digits);
}

std::string Word(std::uint16_t word) {
  const std::uint8_t octets[] = {static_cast<std::uint8_t>(word >> 8U),
                                 static_cast<std::uint8_t>(word & 0xFFU)};
  return "0x" + Hex(octets);
}

std::string AddressText(const sv::Address& address) {
  std::string text;
  for (const std::uint8_t octet : address) text += (text.empty() ? "" : ":") + Hex({&octet, 1});
  return text;
}

/// An ID as tshark writes it: up to the first zero, and a line's end as "\n".
std::string IdText(std::string_view id) {
  std::string text;
  for (const char letter : id.substr(0, id.find('\0'))) {
    if (letter == '\n')
      text += "\\n";
    else
      text += letter;
  }
  return text;
}

/// A moment as tshark writes it, "Nov 22, 2023 14:33:06.199218750 UTC", of seconds since 1970 and a
/// fraction of 24 bits.
std::string Time(sv::Octets refrTm) {
  const auto seconds = static_cast<std::time_t>(sv::Number(refrTm.first(4)));
  char date[32] = {};
  std::strftime(date, sizeof date, "%b %e, %Y %H:%M:%S", std::gmtime(&seconds));
  char nanos[16] = {};
  const std::uint64_t fraction = sv::Number(refrTm.subspan(4, 3));
  std::snprintf(nanos, sizeof nanos, ".%09u UTC",
                static_cast<unsigned>(fraction * 1'000'000'000 >> 24U));
  return std::string(date) + nanos;
}

/// The columns of each ASDU.
struct AsduColumns {
  std::vector<std::string> Ids, Datsets, Counts, Revisions, Times, Synchs, Rates, Modes, Data;

  void Add(const sv::Asdu& asdu) {
    Ids.push_back(IdText(asdu.SvId));
    if (asdu.Datset) Datsets.push_back(IdText(*asdu.Datset));
    Counts.push_back(std::to_string(asdu.SmpCnt.value()));
    Revisions.push_back(std::to_string(asdu.ConfRev.value()));
    if (!asdu.RefrTm.empty()) Times.push_back(Time(asdu.RefrTm));
    Synchs.push_back(std::to_string(asdu.SmpSynch.value()));
    if (asdu.SmpRate) Rates.push_back(std::to_string(*asdu.SmpRate));
    if (asdu.SmpMod) Modes.push_back(std::to_string(*asdu.SmpMod));
    Data.push_back(Hex(asdu.Samples));
  }
};

/// What the reader tells of a frame.
std::string Read(const Frame& bytes) {
  const sv::Frame frame = sv::ReadFrame(bytes, bytes.size());
  Line line;
  line.Column({AddressText(frame.Destination)});
  line.Column({AddressText(frame.Source)});
  std::vector<std::string> priorities, drops, vlans;
  for (std::size_t i = 0; i < frame.TagCount; ++i) {
    priorities.push_back(std::to_string(frame.Tags[i].Priority()));
    drops.emplace_back(frame.Tags[i].DropEligible() ? "1" : "0");
    vlans.push_back(std::to_string(frame.Tags[i].Vlan()));
  }
  line.Column(priorities), line.Column(drops), line.Column(vlans);
  line.Column({Word(frame.AppId)});
  line.Column({std::to_string(frame.PduLength)});
  line.Column({Word(frame.Reserved1)}), line.Column({Word(frame.Reserved2)});
  line.Column({std::to_string(frame.AsduCount)});
  AsduColumns all;
  sv::AsduReader reader(frame);
  sv::Asdu asdu;
  while (reader.Next(asdu)) all.Add(asdu);
  EXPECT_EQ(reader.Why(), sv::Fault::None) << sv::Words(reader.Why());
  for (const auto& column : {all.Ids, all.Datsets, all.Counts, all.Revisions, all.Times, all.Synchs,
                             all.Rates, all.Modes, all.Data}) {
    line.Column(column);
  }
  line.Column(frame.Prp ? std::vector{std::to_string(frame.Prp->Sequence)}
                        : std::vector<std::string>());
  line.Column(frame.Prp ? std::vector<std::string>{frame.Prp->Lan == 'A' ? "10" : "11"}
                        : std::vector<std::string>());
  return line.Take();
}

class StructureByTshark : public ::testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    const std::string reason = live::WhyNoWire();
    if (!reason.empty()) GTEST_SKIP() << reason;
    if (std::system("tshark --version > /dev/null 2>&1") != 0) {
      GTEST_SKIP() << "tshark is not on this computer";
    }
    live::LayWire();
  }
  void TearDown() override {
    if (live::WhyNoWire().empty()) live::CutWire();
  }
  /// What tshark tells of the frames of a capture file, one line a frame.
  std::vector<std::string> ReadByTshark(const std::vector<Frame>& frames) const {
    Save(frames);
    std::string command =
        "tshark -r " + folder_.File("bus.pcap") +
        " -T fields -E separator=/t -E occurrence=a -E aggregator='|' -o prp.enable:TRUE";
    for (const char* column : Columns) command += std::string(" -e ") + column;
    EXPECT_EQ(std::system((command + " > " + folder_.File("lines") + " 2> /dev/null").c_str()), 0);
    std::ifstream file(folder_.File("lines"));
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
  }

 private:
  void Save(const std::vector<Frame>& frames) const {
    const std::unique_ptr<pcap_t, void (*)(pcap_t*)> format(pcap_open_dead(DLT_EN10MB, 65535),
                                                            pcap_close);
    pcap_dumper_t* file = pcap_dump_open(format.get(), folder_.File("bus.pcap").c_str());
    ASSERT_NE(file, nullptr);
    for (const Frame& frame : frames) {
      pcap_pkthdr head{};
      head.caplen = head.len = static_cast<bpf_u_int32>(frame.size());
      pcap_dump(reinterpret_cast<u_char*>(file), &head, frame.data());
    }
    pcap_dump_close(file);
  }

  support::TemporaryFolder folder_;
};

INSTANTIATE_TEST_SUITE_P(Of, StructureByTshark,
                         ::testing::Values("locked", "locked60", "tags", "addresses", "ids",
                                           "doubled", "optional", "asdus", "channels", "mixed"),
                         [](const auto& profile) { return std::string(profile.param); });

TEST_P(StructureByTshark, IsThatOfEachFrame) {
  live::WireTap tap("ether proto 0x88ba");
  PlayedBus bus(GetParam(), "--duration 0.02");
  bus.Sent();
  std::vector<Frame> frames;
  tap.TakeAllTo(frames);
  ASSERT_EQ(tap.Missed(), 0U);
  ASSERT_GT(frames.size(), 40U);
  const std::vector<std::string> lines = ReadByTshark(frames);
  ASSERT_EQ(lines.size(), frames.size());
  for (std::size_t i = 0; i < frames.size(); ++i) {
    ASSERT_EQ(Read(frames[i]), lines[i]) << "frame " << i;
  }
}

}  // namespace
