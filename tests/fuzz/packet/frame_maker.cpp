#include "fuzz/packet/frame_maker.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string_view>

namespace fuzz {

using support::BrokenFrame;
using support::FrameBytes;
using support::SvFrame;

namespace {

constexpr std::size_t SamplesAPeriod = 80;
constexpr std::uint32_t SamplesASecond = 4000;
/// The largest values of a sine: silent, usual, and as large as a number gets.
constexpr std::array<double, 4> Peaks = {0, 123'456, 10'000'000, 2'147'483'647};
/// The longest frame of a usual network.
constexpr std::size_t LongestUsual = 1522;

const std::array<double, SamplesAPeriod>& Sine() {
  static const auto sine = [] {
    std::array<double, SamplesAPeriod> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
      values[i] = std::sin(2 * std::numbers::pi * static_cast<double>(i) / SamplesAPeriod);
    }
    return values;
  }();
  return sine;
}

void PutWord(std::span<std::uint8_t> at, std::uint32_t word) {
  for (std::size_t i = 0; i < at.size(); ++i) {
    at[i] = static_cast<std::uint8_t>(word >> (8 * (at.size() - 1 - i)));
  }
}

std::size_t Behind(const FrameBytes& bytes, std::string_view mark) {
  const auto at = std::search(bytes.begin(), bytes.end(), mark.begin(), mark.end());
  return at == bytes.end() ? 0 : static_cast<std::size_t>(at - bytes.begin()) + mark.size();
}

}  // namespace

FrameMaker::Sender FrameMaker::Placed(FrameBytes bytes) {
  Sender sender{std::move(bytes)};
  sender.CountAt = Behind(sender.Bytes, std::string_view("\x82\x02", 2));
  for (const std::size_t channels : {8U, 4U, 12U}) {
    const char mark[] = {'\x87', static_cast<char>(8 * channels)};
    if (sender.SamplesAt > 0) break;
    sender.SamplesAt = Behind(sender.Bytes, {mark, sizeof mark});
    sender.Channels = channels;
  }
  if (sender.SamplesAt == 0) sender.Channels = 0;
  return sender;
}

const std::vector<FrameMaker::Sender>& FrameMaker::Senders() {
  static const auto senders = [] {
    std::vector<FrameBytes> frames;
    for (const char* id : {"MU01", "MU02", "MU01 and MU02", "M\xDC 7", "", "MU77"}) {
      frames.push_back(SvFrame(id).Bytes());
      frames.push_back(SvFrame(id).Tagged().Bytes());
    }
    for (const std::size_t channels : {4U, 12U, 20U, 150U}) {
      frames.push_back(SvFrame("MU01").Channels(channels).Bytes());
      frames.push_back(SvFrame("MU02").Channels(channels).Bytes());
    }
    frames.push_back(SvFrame("MU01").Asdus(2).Bytes());
    frames.push_back(SvFrame("MU01").Asdus(8).Simulated().Bytes());
    frames.push_back(SvFrame("MU02").Vlan(4, 1, 0x88A8).Vlan(0, 5).Quality(3, 0x801).Bytes());
    frames.push_back(SvFrame("MU01").FieldBeforeCount({0x81, 2, 'D', 'S'}).Bytes());
    frames.push_back(SvFrame("MU01")
                         .FieldBehindSamples({0x84, 8, 1, 2, 3, 4, 5, 6, 7, 8, 0x86, 2, 0x12, 0xC0})
                         .Trailer({0, 1, 0xA0, 122, 0x88, 0xFB})
                         .Bytes());
    frames.push_back(SvFrame("MU01").Trailer(FrameBytes(9000, 0x87)).Bytes());
    frames.push_back({});
    std::vector<Sender> placed;
    for (FrameBytes& frame : frames) placed.push_back(Placed(std::move(frame)));
    return placed;
  }();
  return senders;
}

BrokenFrame FrameMaker::Raw(std::span<const std::uint8_t> bytes, std::size_t length,
                            FrameBytes& memory) {
  memory.resize(Longest);
  const auto at = std::span(memory).last(bytes.size());
  std::ranges::copy(bytes, at.begin());
  return {at, std::max(bytes.size(), length)};
}

BrokenFrame FrameMaker::Make(const Burst& burst, std::uint32_t n, FrameBytes& memory) {
  memory.resize(Longest);
  const std::vector<Sender>& senders = Senders();
  const Sender& sender = senders[burst.Sender % senders.size()];
  const auto frame = std::span(memory).last(sender.Bytes.size());
  Fill(sender, burst, n, frame);
  return Spoil(burst, n, frame, memory);
}

void FrameMaker::Fill(const Sender& sender, const Burst& burst, std::uint32_t n,
                      std::span<std::uint8_t> at) {
  std::ranges::copy(sender.Bytes, at.begin());
  std::uint32_t count = n;
  if (burst.Kind == FrameKind::Jumping && burst.First != 0 && n % burst.First == 0) {
    count += static_cast<std::uint32_t>(static_cast<std::int8_t>(burst.Second));
  }
  if (sender.CountAt != 0) PutWord(at.subspan(sender.CountAt, 2), count % SamplesASecond);
  const double peak = Peaks[burst.Second % Peaks.size()];
  for (std::size_t channel = 0; channel < sender.Channels; ++channel) {
    const double value = peak * Sine()[(n + 27 * channel) % SamplesAPeriod];
    PutWord(at.subspan(sender.SamplesAt + 8 * channel, 4),
            static_cast<std::uint32_t>(static_cast<std::int32_t>(value)));
  }
}

BrokenFrame FrameMaker::Lengthen(std::span<std::uint8_t> frame, FrameBytes& memory) {
  const std::size_t most = dice_.OneIn(8) ? Longest : LongestUsual;
  if (frame.size() >= most) return {frame, frame.size()};
  const std::size_t length = frame.size() + 1 + dice_.Below(most - frame.size());
  const auto longer = std::span(memory).last(length);
  std::ranges::copy(frame, longer.begin());
  const auto behind = longer.subspan(frame.size());
  for (std::size_t i = 0; i < behind.size(); i += 1 + dice_.Below(64)) {
    behind[i] = static_cast<std::uint8_t>(dice_.Below(256));
  }
  return {longer, longer.size()};
}

BrokenFrame FrameMaker::Spoil(const Burst& burst, std::uint32_t n, std::span<std::uint8_t> frame,
                              FrameBytes& memory) {
  const auto kind = burst.Kind == FrameKind::Mixed
                        ? static_cast<FrameKind>(dice_.Below(FrameKinds - 1))
                        : burst.Kind;
  if (kind == FrameKind::Overlong) return Lengthen(frame, memory);
  if (frame.empty()) return {frame, dice_.OneIn(2) ? 0U : dice_.Below(70'000)};
  const std::size_t place = burst.First % frame.size();
  switch (kind) {
    case FrameKind::Flipped:
      for (std::uint32_t bits = 1 + dice_.Below(8); bits > 0; --bits) {
        frame[dice_.Below(frame.size())] ^= static_cast<std::uint8_t>(1U << dice_.Below(8));
      }
      break;
    case FrameKind::Cut: {
      const auto rest = frame.last(dice_.Below(frame.size()));
      std::ranges::copy(frame.first(rest.size()), rest.begin());
      return {rest, dice_.OneIn(2) ? rest.size() : frame.size()};
    }
    case FrameKind::Noise:
      for (std::uint8_t& byte : frame) byte = static_cast<std::uint8_t>(dice_.Below(256));
      break;
    case FrameKind::Pinned:
      frame[place] = burst.Second;
      break;
    case FrameKind::Ramp:
      frame[place] = static_cast<std::uint8_t>(n);
      break;
    case FrameKind::Snapped:
      return {frame, frame.size() + (dice_.OneIn(2) ? burst.Second : dice_.Below(70'000))};
    case FrameKind::Spliced: {
      const FrameBytes& other = Senders()[dice_.Below(Senders().size())].Bytes;
      const std::size_t most = std::min(other.size(), frame.size());
      const std::size_t cut = dice_.Below(most + 1);
      std::copy(other.begin() + static_cast<std::ptrdiff_t>(cut),
                other.begin() + static_cast<std::ptrdiff_t>(most),
                frame.begin() + static_cast<std::ptrdiff_t>(cut));
      break;
    }
    default:
      break;
  }
  return {frame, frame.size()};
}

}  // namespace fuzz
