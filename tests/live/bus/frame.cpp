#include "frame.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

namespace bus {

namespace {

constexpr int SamplesAPeriod = 80;
constexpr std::size_t BytesAChannel = 8;
constexpr int Currents = 4;
/// The neutral current counts the seconds, in A, so that a recording of many seconds nowhere
/// repeats itself.
constexpr std::size_t SecondsChannel = 3;
constexpr std::size_t AddressBytes = 12;
constexpr std::size_t TagBytes = 4;
constexpr std::size_t EthertypeBytes = 2;
constexpr std::uint8_t RedundancySuffix[] = {0x88, 0xFB};
constexpr std::size_t TrailerBytes = 6;

void Append(Bytes& bytes, const Bytes& more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

void Append16(Bytes& bytes, std::size_t value) {
  bytes.push_back(static_cast<std::uint8_t>(value >> 8U));
  bytes.push_back(static_cast<std::uint8_t>(value));
}

void Write16(std::uint8_t* at, std::uint64_t value) {
  at[0] = static_cast<std::uint8_t>(value >> 8U);
  at[1] = static_cast<std::uint8_t>(value);
}

void Write32(std::uint8_t* at, std::int64_t value) {
  const auto bits = static_cast<std::uint32_t>(static_cast<std::int32_t>(value));
  Write16(at, bits >> 16U);
  Write16(at + 2, bits);
}

Bytes TextBytes(const std::string& text) {
  return {text.begin(), text.end()};
}

/// A raw sample: currents in mA, voltages in 10 mV.
std::int64_t Raw(int number, int channel, int place) {
  constexpr double Angles[] = {0, -120, 120, 0, 30, -90, 150, 0};
  if (channel >= 2 * Currents) return std::int64_t{100} * channel;
  const bool current = channel < Currents;
  const int phase = channel % Currents;
  const double amperes = 100 + 10 * number + phase;
  const double volts = phase == 3 ? 50 : 1000.0 * (10 + number) + 100 * phase;
  const double turn =
      2 * std::numbers::pi * place / SamplesAPeriod + Angles[channel] * std::numbers::pi / 180;
  const double rms = current ? amperes * 1000 : volts * 100;
  return std::llround(std::numbers::sqrt2 * rms * std::sin(turn));
}

}  // namespace

Bytes Field(std::uint8_t tag, const Bytes& content) {
  Bytes field{tag};
  const std::size_t length = content.size();
  if (length > 0xFF) {
    field.push_back(0x82);
    Append16(field, length);
  } else {
    if (length > 0x7F) field.push_back(0x81);
    field.push_back(static_cast<std::uint8_t>(length));
  }
  Append(field, content);
  return field;
}

FrameEncoder::FrameEncoder(const Sender& sender, int rate, Lan lan) : sender_(sender), rate_(rate) {
  for (int place = 0; place < SamplesAPeriod; ++place) period_.push_back(Data(place));
  Bytes asdus;
  for (int i = 0; i < sender_.Asdus; ++i) Append(asdus, Field(0x30, Asdu()));
  Bytes content = Field(0x80, {static_cast<std::uint8_t>(sender_.Asdus)});
  Append(content, Field(0xA2, asdus));
  const Bytes pdu = Field(0x60, content);

  frame_.assign(sender_.Destination.begin(), sender_.Destination.end());
  frame_.insert(frame_.end(), sender_.Source.begin(), sender_.Source.end());
  if (sender_.Tag) {
    Append16(frame_, 0x8100);
    Append16(frame_, *sender_.Tag);
  }
  Append16(frame_, 0x88BA);
  Append16(frame_, 0x4000U + static_cast<unsigned>(sender_.Number));
  Append16(frame_, 8 + pdu.size());
  Append16(frame_, 0);
  Append16(frame_, 0);
  Append(frame_, pdu);
  FindPlaces();
  if (lan == Lan::None) return;
  trailer_ = frame_.size();
  const std::size_t head = AddressBytes + (sender_.Tag ? TagBytes : 0) + EthertypeBytes;
  Append16(frame_, 0);
  Append16(frame_, static_cast<std::size_t>(lan) << 12U | (trailer_ - head + TrailerBytes));
  Append(frame_, Bytes(std::begin(RedundancySuffix), std::end(RedundancySuffix)));
}

Bytes FrameEncoder::Asdu() const {
  Bytes asdu = Field(0x80, TextBytes(sender_.Id));
  if (sender_.DataSet) Append(asdu, Field(0x81, TextBytes("MU/LLN0$PhsMeas1")));
  Append(asdu, Field(0x82, {0, 0}));
  Append(asdu, Field(0x83, {0, 0, 0, 1}));
  if (sender_.RefreshTime) Append(asdu, Field(0x84, {0x65, 0x5E, 0x11, 0x22, 0x33, 0, 0, 0x0A}));
  Append(asdu, Field(0x85, {2}));
  if (sender_.SampleRate) Append(asdu, Field(0x86, {0, SamplesAPeriod}));
  Append(asdu, Field(0x87, Data(0)));
  if (sender_.SampleMode) Append(asdu, Field(0x88, {0, 0}));
  return asdu;
}

Bytes FrameEncoder::Data(int place) const {
  Bytes data(static_cast<std::size_t>(sender_.Channels) * BytesAChannel);
  for (int channel = 0; channel < sender_.Channels; ++channel) {
    const std::int64_t raw = Raw(sender_.Number, channel, place);
    Write32(data.data() + static_cast<std::size_t>(channel) * BytesAChannel, raw);
  }
  return data;
}

void FrameEncoder::FindPlaces() {
  // An ASDU begins with the ID, and only its samples hold the first data of the period.
  const Bytes asdu = Asdu();
  const Bytes count = Field(0x82, {0, 0});
  const Bytes data = Field(0x87, period_[0]);
  auto from = frame_.begin();
  for (int i = 0; i < sender_.Asdus; ++i) {
    const auto begin = std::search(from, frame_.end(), asdu.begin(), asdu.end());
    const auto id = begin + static_cast<std::ptrdiff_t>(2 + sender_.Id.size());
    const auto counter = std::search(id, frame_.end(), count.begin(), count.end());
    const auto samples = std::search(counter, frame_.end(), data.begin(), data.end());
    from = samples + static_cast<std::ptrdiff_t>(data.size());
    places_.push_back({static_cast<std::size_t>(counter - frame_.begin()) + 2,
                       static_cast<std::size_t>(from - frame_.begin()) - period_[0].size()});
  }
}

const Bytes& FrameEncoder::FrameOf(std::int64_t sample) {
  std::int64_t at = sample - sender_.Asdus + 1;
  for (const Place& place : places_) {
    Write16(frame_.data() + place.Count, static_cast<std::uint64_t>(at % rate_));
    const Bytes& data = period_[static_cast<std::size_t>(at % SamplesAPeriod)];
    std::memcpy(frame_.data() + place.Data, data.data(), data.size());
    Write32(frame_.data() + place.Data + SecondsChannel * BytesAChannel, 1000 * (1 + at / rate_));
    ++at;
  }
  if (trailer_ != 0) Write16(frame_.data() + trailer_, static_cast<std::uint64_t>(sample));
  return frame_;
}

}  // namespace bus
