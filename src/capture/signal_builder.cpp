#include "capture/signal_builder.h"

#include <array>
#include <cmath>
#include <string>

#include "base/trap.h"
#include "capture/raw_sample.h"
#include "platform/stream_format.h"

namespace packetroutines {

namespace channels = platform::channels;
using platform::Failure;
using platform::Verdict;

namespace {

/// Streams have 4, 8 or 12 channels.
constexpr std::int16_t MostWithoutVoltages = channels::OfAKind;
/// The offset of a stream whose counter or samples were never found.
constexpr std::int32_t NotLocated = 0;
/// A block that stays below this in the chosen units is silent.
constexpr double SilenceLevel = 0.1;

/// The raw sample of a channel. A stream that was never located has none: it reads as 0, so that
/// its blocks are silent.
double ChannelAt(const PacketBytes& bytes, std::int32_t offset, std::size_t channel) {
  if (offset == NotLocated) return 0;
  const std::int32_t position = offset + PlaceOf(channel);
  const std::uint8_t four[] = {bytes(position), bytes(position + 1), bytes(position + 2),
                               bytes(position + 3)};
  return RawSample(four);
}

std::int32_t CountAt(const PacketBytes& bytes, std::int32_t position) {
  if (position == NotLocated) return 0;
  const std::uint8_t* const two = bytes.Run(position, 2);
  if (two == nullptr) throw Failure(platform::failure::SubscriptOutOfRange);
  return 256 * two[0] + two[1];
}

bool HasVoltages(const StreamFields& stream) {
  return stream.ChannelCount > MostWithoutVoltages;
}

}  // namespace

SignalBuilder::SignalBuilder(AcquisitionState& state, BlockArrays& block, RecordRings& rings,
                             const config::RunSettings& present, forms::ValuesControls& values,
                             const platform::NumberText& numbers, RetryBox& retry,
                             platform::Program& program)
    : state_(state),
      block_(block),
      rings_(rings),
      present_(present),
      values_(values),
      numbers_(numbers),
      retry_(retry),
      program_(program) {}

inline double SignalBuilder::InUnits(double raw, std::size_t channel) const {
  return Scaled(raw, channel) *
         (channels::IsCurrent(channel) ? present_.CurrentUnitFactor : present_.VoltageUnitFactor);
}

[[gnu::noinline]] void SignalBuilder::TakeCells(std::span<double, channels::Count> values,
                                                const PacketBytes& bytes) const {
  const std::int32_t offset = state_.ValueOffset[0];
  for (std::size_t i = 0; i < channels::OfAKind; ++i) {
    values[i] = InUnits(ChannelAt(bytes, offset, i), i);
    const std::size_t k = i + channels::OfAKind;
    if (HasVoltages(state_)) values[k] = InUnits(ChannelAt(bytes, offset, k), k);
  }
}

inline void SignalBuilder::TakeRow(std::int32_t row, const PacketBytes& bytes) {
  block_.SampleCount(row) = CountAt(bytes, state_.SampleCountOffset[0]);
  const auto values = block_.SignalValues.Row(row);
  const std::int32_t offset = state_.ValueOffset[0];
  const std::uint8_t* const data = bytes.Run(offset, BytesASample);
  if (data == nullptr || offset == NotLocated || !HasVoltages(state_)) {
    TakeCells(values, bytes);
    return;
  }
  // First read, then scaled, so that the processor does several at a time.
  std::array<double, channels::Count> raw{};
  for (std::size_t k = 0; k < raw.size(); ++k) raw[k] = RawSample(data + PlaceOf(k));
  for (std::size_t k = 0; k < raw.size(); ++k) values[k] = InUnits(raw[k], k);
}

void SignalBuilder::BuildingSignals(std::int32_t row, const PacketBytes& bytes, bool& signalOk) {
  const auto trap = [&](const Failure& failure, int attempt) {
    if (failure.Number() == platform::failure::SubscriptOutOfRange) {
      signalOk = false;
      ++state_.Counters.Unread;
      return Verdict::LeaveRoutine;
    }
    return retry_.Show({"unknown...",
                        std::string("unknown error in 'BuildingSignals'") + platform::Crlf +
                            failure.Text() + platform::Crlf + "this happens while building signals",
                        platform::Icon::Critical},
                       attempt);
  };
  signalOk = true;
  platform::RunSteps(
      program_, trap, [&] { TakeRow(row, bytes); }, [&] { TestSilence(row, signalOk); },
      [&] {
        if (state_.LookingForValues && state_.RealTimeMode) RealTimeValue();
      });
}

void SignalBuilder::TestSilence(std::int32_t row, bool& signalOk) {
  if (row != present_.BaseSamples - 1) return;
  const double level = platform::CWArray::Reduce(block_.SignalValues, SilenceLevel);
  if (std::abs(level) >= SilenceLevel) return;
  signalOk = false;
  ++state_.Counters.SilentBlocks;
}

void SignalBuilder::RealTimeValue() {
  const auto channel = static_cast<std::size_t>(state_.RealTimeChannel - 1);
  const auto column = array_.Column(block_.SignalValues, channel);
  state_.RmsValues[channel] = platform::CWDSP::AcDcEstimate(column).Ac;
  values_.Label5[channel].Caption = numbers_.Format(state_.RmsValues[channel], present_.UnitFormat);
}

void SignalBuilder::BuildingSignals2(std::int32_t row, const PacketBytes& bytes, bool&) {
  const auto skip = [](const Failure&) { return Verdict::SkipStep; };
  platform::RunSteps(program_, skip, [&] {
    block_.SampleCount2(row) =
        platform::Narrow<std::int16_t>(CountAt(bytes, state_.SampleCountOffset[1]));
  });
  const std::int32_t offset = state_.ValueOffset[1];
  const bool voltages = HasVoltages(state_);
  for (std::size_t i = 0; i < channels::OfAKind; ++i) {
    platform::RunSteps(
        program_, skip,
        [&] { block_.SignalValues2.Row(row)[i] = Scaled(ChannelAt(bytes, offset, i), i); },
        [&] {
          const std::size_t k = i + channels::OfAKind;
          if (voltages) {
            block_.SignalValues2.Row(row)[k] = Scaled(ChannelAt(bytes, offset, k), k);
          }
        });
  }
}

void SignalBuilder::StoreRecordSample(std::int16_t ringIndex, std::int32_t row) {
  rings_.RecordCount(ringIndex) = block_.SampleCount(row);
  const auto values = block_.SignalValues.Row(row);
  for (std::size_t k = 0; k < values.size(); ++k) rings_.RecordChannel[k](ringIndex) = values[k];
}

void SignalBuilder::StoreRecordSample2(std::int16_t ringIndex, std::int32_t row) {
  rings_.RecordCount2(ringIndex) = block_.SampleCount2(row);
  const auto values = block_.SignalValues2.Row(row);
  for (std::size_t k = 0; k < values.size(); ++k) rings_.RecordChannel2[k](ringIndex) = values[k];
}

}  // namespace packetroutines
