#include "capture/sample_locator.h"

#include <algorithm>
#include <string>

#include "base/number_text.h"
#include "base/trap.h"
#include "capture/raw_sample.h"

namespace packetroutines {

namespace {

// BER tags of the fields of an ASDU, IEC 61850-9-2.
constexpr std::uint8_t SmpCntTag = 0x82;
constexpr std::uint8_t SeqDataTag = 0x87;
/// The scan stops this many bytes before the end of the frame, so that the samples of an 8-channel
/// frame are not taken for tags.
constexpr std::int32_t ScanMargin = BytesASample;

}  // namespace

void SampleLocator::FindDataOffsets(const PacketBytes& bytes, std::int16_t packetLength,
                                    std::size_t stream) {
  platform::RunSteps(
      program_,
      [this](const platform::Failure& failure, int attempt) {
        return retry_.Show({"unknown exception",
                            std::string("unknown error") + platform::Crlf + failure.Text() +
                                platform::Crlf + "This happens while looking for data offsets",
                            platform::Icon::Critical},
                           attempt);
      },
      [&] { Locate(bytes, packetLength, stream); });
}

SampleLocator::Found SampleLocator::Scan(const PacketBytes& bytes, std::int32_t frameLength) {
  Found found;
  for (std::int32_t i = 1; i <= frameLength - ScanMargin; ++i) {
    const std::uint8_t tag = bytes(i);
    const std::uint8_t length = bytes(i + 1);
    const auto content = static_cast<std::int16_t>(i + 2);
    if (tag == SmpCntTag && length == 2) found.SampleCount = content;
    if (tag == SeqDataTag && (length == 32 || length == 64 || length == 96)) {
      found.Values = content;
      found.Channels = length / BytesAChannel;
    }
  }
  return found;
}

void SampleLocator::Locate(const PacketBytes& bytes, std::int32_t packetLength,
                           std::size_t stream) {
  Found found = Scan(bytes, std::min(bytes.FrameLength(), packetLength));
  if (found.Channels == 0) found = Scan(bytes, packetLength);
  streams_.SamplesLocated[stream] = found.Channels;
  if (found.SampleCount != 0) streams_.SampleCountOffset[stream] = found.SampleCount;
  if (found.Channels == 0) return;
  streams_.ValueOffset[stream] = found.Values;
  streams_.ChannelCount = found.Channels;
}

void SampleLocator::FindQualitySettings(const PacketBytes&, std::size_t) {}

void SampleLocator::Forget() {
  streams_.OffsetsKnown = {};
  streams_.SampleCountOffset = {};
  streams_.ValueOffset = {};
  streams_.SamplesLocated = {};
  streams_.ChannelCount = 0;
}

}  // namespace packetroutines
