#include "console/bus/stream_json.h"

#include <cmath>

#include "base/hex_text.h"
#include "base/shown_text.h"
#include "console/iso_time.h"

namespace console {

namespace {

/// So that nobody reads digits that were never measured.
double Thousandths(double value) {
  return std::round(value * 1000) / 1000;
}

Json GapsToJson(const ArrivalGaps& gaps) {
  constexpr std::uint32_t AllButOne = 999;
  return {{"smallest", gaps.Smallest().count()},
          {"mean", Thousandths(gaps.Mean())},
          {"p99_9", gaps.Below(AllButOne).count()},
          {"greatest", gaps.Greatest().count()}};
}

void AddIdentity(Json& json, const StreamFigures& stream, const platform::CodePage& code) {
  const StreamIdentity& who = stream.Who();
  json["svID"] = TextOf(who.SvId, code);
  json["appid"] = platform::HexWordText(who.AppId);
  json["sourceAddress"] = platform::HexAddressText(who.Source);
  json["destinationAddress"] = platform::HexAddressText(who.Destination);
  if (!who.Tag) return;
  json["vlanId"] = who.Tag->Vlan();
  json["vlanPriority"] = who.Tag->Priority();
}

void AddState(Json& json, const StreamState& state, const platform::CodePage& code) {
  json["simulation"] = state.Simulated;
  json["noASDU"] = state.Asdus;
  json["channels"] = state.Channels;
  if (!state.Datset.empty()) json["datSet"] = TextOf(state.Datset, code);
  if (state.ConfRev) json["confRev"] = *state.ConfRev;
  if (state.SmpSynch) json["smpSynch"] = *state.SmpSynch;
  if (state.SmpRate) json["smpRate"] = *state.SmpRate;
  if (state.SmpMod) json["smpMod"] = *state.SmpMod;
  if (state.Lan != 0) json["prpLan"] = std::string(1, state.Lan);
}

}  // namespace

std::string TextOf(const std::string& octets, const platform::CodePage& code) {
  return platform::Escaped(code.ToUtf8(octets));
}

Json ToJson(const StreamFigures& stream, const platform::CodePage& code) {
  Json json;
  AddIdentity(json, stream, code);
  AddState(json, stream.State(), code);
  const sv::TrackTotals totals = stream.Totals();
  json["frames"] = stream.Frames();
  json["samples"] = totals.Samples;
  if (const auto rate = stream.FramesASecond()) json["framesPerSecond"] = Thousandths(*rate);
  if (const auto rate = stream.SamplesASecond()) json["samplesPerSecond"] = Thousandths(*rate);
  if (const auto rate = stream.NominalRate()) json["nominalSamplesPerSecond"] = *rate;
  json["samplesLost"] = totals.Missing;
  json["samplesDoubled"] = totals.Doubled;
  json["samplesOutOfOrder"] = totals.Late;
  json["restarts"] = totals.Jumped;
  json["smpSynchChanges"] = stream.SynchChanges();
  if (stream.Gaps().Count() > 0) json["arrivalGapMicroseconds"] = GapsToJson(stream.Gaps());
  if (stream.Frames() > 0) {
    json["first"] = IsoTime(stream.First());
    json["last"] = IsoTime(stream.Last());
  }
  return json;
}

Json ChannelsToJson(const StreamFigures& stream) {
  Json channels = Json::array();
  for (std::size_t channel = 0; channel < stream.MeasuredChannels(); ++channel) {
    const ChannelReading reading = stream.Reading(channel);
    channels.push_back({{"rms", Thousandths(reading.Rms)},
                        {"mean", Thousandths(reading.Mean)},
                        {"magnitude", Thousandths(reading.Magnitude)},
                        {"angle", Thousandths(reading.Angle)}});
  }
  return channels;
}

}  // namespace console
