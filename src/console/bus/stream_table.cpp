#include "console/bus/stream_table.h"

#include <cmath>
#include <string>

#include "base/hex_text.h"
#include "console/bus/stream_json.h"
#include "console/table.h"

namespace console {

namespace {

constexpr const char* None = "-";
constexpr auto Right = Table::Side::Right;

template <typename T>
std::string Text(const std::optional<T>& number) {
  return number ? std::to_string(*number) : None;
}

std::string RateText(const std::optional<double>& rate) {
  return rate ? std::to_string(std::lround(*rate)) : None;
}

std::string TagText(const std::optional<sv::VlanTag>& tag) {
  if (!tag) return None;
  return std::to_string(tag->Vlan()) + "/" + std::to_string(tag->Priority());
}

void WriteWho(const BusStreams& bus, const platform::CodePage& code, std::ostream& out) {
  Table table({{"#", Right},
               {"svID"},
               {"APPID"},
               {"destination"},
               {"source"},
               {"VLAN/prio"},
               {"ASDUs", Right},
               {"channels", Right},
               {"confRev", Right},
               {"smpSynch", Right},
               {"simulation"}});
  std::size_t number = 0;
  for (const auto& stream : bus.Streams()) {
    const StreamIdentity& who = stream->Who();
    const StreamState& state = stream->State();
    table.Add({std::to_string(++number), TextOf(who.SvId, code), platform::HexWordText(who.AppId),
               platform::HexAddressText(who.Destination), platform::HexAddressText(who.Source),
               TagText(who.Tag), std::to_string(state.Asdus), std::to_string(state.Channels),
               Text(state.ConfRev), Text(state.SmpSynch), state.Simulated ? "yes" : "no"});
  }
  table.Write(out);
}

void WriteHow(const BusStreams& bus, std::ostream& out) {
  constexpr std::uint32_t AllButOne = 999;
  Table table({{"#", Right},
               {"frames", Right},
               {"frames/s", Right},
               {"samples/s", Right},
               {"lost", Right},
               {"doubled", Right},
               {"out of order", Right},
               {"gap us: smallest", Right},
               {"mean", Right},
               {"99.9 %", Right},
               {"greatest", Right}});
  std::size_t number = 0;
  for (const auto& stream : bus.Streams()) {
    const sv::TrackTotals totals = stream->Totals();
    const ArrivalGaps& gaps = stream->Gaps();
    table.Add({std::to_string(++number), std::to_string(stream->Frames()),
               RateText(stream->FramesASecond()), RateText(stream->SamplesASecond()),
               std::to_string(totals.Missing), std::to_string(totals.Doubled),
               std::to_string(totals.Late), std::to_string(gaps.Smallest().count()),
               std::to_string(std::lround(gaps.Mean())),
               std::to_string(gaps.Below(AllButOne).count()),
               std::to_string(gaps.Greatest().count())});
  }
  table.Write(out);
}

}  // namespace

void WriteTables(const BusStreams& bus, const platform::CodePage& code, std::ostream& out) {
  WriteWho(bus, code, out);
  out << '\n';
  WriteHow(bus, out);
}

}  // namespace console
