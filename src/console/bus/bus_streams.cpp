#include "console/bus/bus_streams.h"

#include <algorithm>

namespace console {

namespace {

void AddOctets(std::string& key, const sv::Address& address) {
  for (const std::uint8_t octet : address) key += static_cast<char>(octet);
}

void AddWord(std::string& key, std::uint16_t word) {
  key += static_cast<char>(word >> 8U);
  key += static_cast<char>(word & 0xFFU);
}

}  // namespace

StreamFigures* BusStreams::Find(const sv::Frame& frame, std::string_view svId, Time arrived) {
  // No VLAN has this number.
  constexpr std::uint16_t NoVlan = 0xFFFF;
  key_.clear();
  AddOctets(key_, frame.Source);
  AddOctets(key_, frame.Destination);
  AddWord(key_, frame.AppId);
  AddWord(key_, frame.TagCount == 0 ? NoVlan : frame.Tags[frame.TagCount - 1].Vlan());
  key_ += svId;
  const auto known = byKey_.find(std::string_view(key_));
  if (known != byKey_.end()) return known->second;
  if (streams_.size() == MostStreams) {
    ++notFollowed_;
    return nullptr;
  }
  StreamIdentity who;
  who.SvId = svId;
  who.Source = frame.Source;
  who.Destination = frame.Destination;
  who.AppId = frame.AppId;
  streams_.push_back(std::make_unique<StreamFigures>(std::move(who), arrived));
  byKey_.emplace(key_, streams_.back().get());
  return streams_.back().get();
}

void BusStreams::Take(const platform::CapturedFrame& captured) {
  const sv::Frame frame = sv::ReadFrame(captured.Bytes, captured.Length);
  if (frame.Why == sv::Fault::HeadCut || frame.Why == sv::Fault::OtherEthertype) return;
  ++frames_;
  sv::AsduReader reader(frame);
  sv::Asdu asdu;
  // ASDUs of one stream stand together.
  sv::Asdu first;
  std::uint32_t count = 0;
  const auto finish = [&] {
    if (count == 0) return;
    StreamFigures* const stream = Find(frame, first.SvId, captured.Arrived);
    if (stream == nullptr) return;
    stream->Take(frame, first, count, captured.Arrived);
    if (frequency_ > 0) Measure(frame, first.SvId, *stream);
  };
  while (reader.Next(asdu)) {
    if (count == 0 || asdu.SvId != first.SvId) {
      finish();
      first = asdu;
      count = 0;
    }
    ++count;
  }
  finish();
  const sv::Fault fault = frame.Why != sv::Fault::None ? frame.Why : reader.Why();
  if (fault == sv::Fault::None) return;
  ++faulty_;
  latestFault_ = fault;
}

const NominalWave& BusStreams::WaveOf(std::uint32_t rate) {
  const auto known = waves_.find(rate);
  if (known != waves_.end()) return known->second;
  return waves_.try_emplace(rate, frequency_, rate).first->second;
}

void BusStreams::Measure(const sv::Frame& frame, std::string_view svId, StreamFigures& stream) {
  const std::optional<std::uint32_t> rate = stream.KnownRate();
  if (!rate) return;
  const NominalWave& wave = WaveOf(*rate);
  sv::AsduReader reader(frame);
  for (sv::Asdu asdu; reader.Next(asdu);) {
    if (asdu.SvId == svId) stream.Measure(asdu, wave);
  }
}

void BusStreams::End() {
  for (const auto& stream : streams_) stream->End();
}

void BusStreams::SetClock(Time step) {
  for (const auto& stream : streams_) stream->SetClock(step);
}

bool BusStreams::AnyInStretch() const {
  return std::any_of(streams_.begin(), streams_.end(), [](const auto& stream) {
    return stream->Frames() > 0 || stream->Totals().Missing > 0;
  });
}

void BusStreams::BeginStretch(Time now) {
  for (const auto& stream : streams_) stream->BeginStretch(now);
}

}  // namespace console
