#include "fuzz/packet/frame_tally.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "fuzz/demand.h"

namespace fuzz {

using support::BrokenFrame;

namespace {

constexpr std::int32_t RingCells = 4000;
/// The letter that the scripts write beyond ASCII, and what it is in a frame.
constexpr std::string_view UmlautUtf8 = "M\xC3\x9C 7";
constexpr std::string_view UmlautInFrame = "M\xDC 7";

bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// True where the text stands behind the first byte of the frame.
bool Holds(const BrokenFrame& frame, std::size_t limit, std::string_view needle) {
  const std::string_view text(reinterpret_cast<const char*>(frame.Bytes.data()),
                              std::min(frame.Bytes.size(), limit));
  const auto at = text.find(needle);
  return at != std::string_view::npos && at > 0;
}

}  // namespace

bool FrameTally::TakesSamples() const {
  const packetroutines::RunFields& run = scene_.State;
  return run.LookingForScope || run.LookingForValues || run.LookingForPhases ||
         run.LookingForRecording;
}

bool FrameTally::Known(std::size_t stream) const {
  const std::string& content = scene_.Settings.FilterContent[stream];
  return IsAscii(content) || content == UmlautUtf8;
}

std::string_view FrameTally::Needle(std::size_t stream) {
  const std::string& content = scene_.Settings.FilterContent[stream];
  return content == UmlautUtf8 ? UmlautInFrame : std::string_view(content);
}

FrameTally::Expected FrameTally::Expect(const BrokenFrame& frame, bool boxStands) {
  const packetroutines::AcquisitionState& state = scene_.State;
  Expected expected;
  expected.Counts = state.CaptureRunning && !boxStands;
  if (!expected.Counts) return expected;
  const auto length = static_cast<std::size_t>(std::max<std::int16_t>(state.PacketLength, 0));
  expected.TooLong = !state.PacketLengthPending && !state.ReportRequested && frame.Length > length;
  for (std::size_t stream = 0; stream < 2; ++stream) {
    const bool holds = Holds(frame, frame.Bytes.size(), Needle(stream));
    if (state.PacketLengthPending) expected.SetsLength[stream] = holds;
    const bool searched = !state.PacketLengthPending && !state.ReportRequested &&
                          !expected.TooLong && !state.LookingForID;
    expected.Holds[stream] = searched && Holds(frame, length, Needle(stream));
  }
  if (expected.Holds[0]) AdvanceFirst(expected);
  if (expected.Holds[1]) AdvanceSecond();
  return expected;
}

void FrameTally::AdvanceFirst(Expected& expected) {
  const packetroutines::AcquisitionState& state = scene_.State;
  if (!state.OffsetsKnown[0]) {
    row_ = 0;
    cell_ = 0;
  }
  expected.SecondUnsure = !cell_ && state.LookingForRecording;
  if (!row_ || !TakesSamples()) return;
  expected.Row = row_;
  ++*row_;
  if (state.LookingForRecording && AdvanceRing(expected)) return;
  if (*row_ != scene_.Present.BaseSamples) return;
  row_ = 0;
  expected.Blocks = 1;
}

bool FrameTally::AdvanceRing(Expected& expected) {
  if (!cell_) {
    // It may be the one that fills the ring.
    row_.reset();
    return true;
  }
  if (++*cell_ != RingCells) return false;
  row_ = 0;
  cell_ = 0;
  // What fills the ring is looked at no further.
  expected.Holds[1] = false;
  return true;
}

void FrameTally::AdvanceSecond() {
  // The first stream begins anew with the second one.
  if (!scene_.State.OffsetsKnown[1]) row_ = 0;
}

void FrameTally::Deliver(const BrokenFrame& frame, bool boxStands) {
  const packetroutines::AcquisitionState& state = scene_.State;
  const Counters before = state.Counters;
  const std::int32_t blocks = state.BlockCount;
  const std::uint64_t acts = acts_;
  const bool known = Known(0) && Known(1);
  const Expected expected = Expect(frame, boxStands);
  const bool aroundTooLong = tooLongForReport_;
  if (!boxStands) {
    tooLongForReport_ =
        state.ReportRequested && state.PacketLength < static_cast<int>(frame.Length);
  }
  scene_.Capture.ReceiveCut(frame.Bytes, frame.Length);
  // A frame may come in a pump of another one's event, which goes on behind it.
  tooLongForReport_ = aroundTooLong;
  if (acts != acts_ || !known || blurred_) {
    row_.reset();
    cell_.reset();
    return;
  }
  Judge(frame, expected, state.Counters - before);
  // Where the row is not known nobody knows which one completes a block.
  if (row_) Demand(state.BlockCount - blocks == expected.Blocks, "each block is counted once");
}

void FrameTally::Judge(const BrokenFrame& frame, const Expected& expected, const Counters& met) {
  Demand(met.Frames == (expected.Counts ? 1 : 0), "each frame counts once");
  Demand(met.TooLong == (expected.TooLong ? 1 : 0), "what is too long is counted so");
  for (std::size_t stream = 0; stream < 2; ++stream) {
    const packetroutines::StreamCounters& counters = met.Streams[stream];
    Demand(counters.SetLength == (expected.SetsLength[stream] ? 1 : 0),
           "what sets the length is counted for its stream");
    if (stream == 1 && expected.SecondUnsure) break;
    Demand(counters.HeldId == (expected.Holds[stream] ? 1 : 0),
           "a frame counts for the stream whose text it holds");
  }
  const packetroutines::AcquisitionState& state = scene_.State;
  Demand(state.ChannelCount % 4 == 0 && state.ChannelCount <= 12, "a number of channels is one");
  Demand(state.ValueOffset[0] >= 0 && state.ValueOffset[1] >= 0, "a place is one");
  const bool alone = !(expected.Holds[0] && expected.Holds[1]);
  if (expected.Row && alone && met.Unread == 0) JudgeRow(frame, *expected.Row);
}

void FrameTally::JudgeRow(const BrokenFrame& frame, std::int32_t row) const {
  if (row >= scene_.Block.SignalValues.Rows()) return;
  const auto byteAt = [&](std::size_t place) -> std::uint32_t {
    return place >= 1 && place <= frame.Bytes.size() ? frame.Bytes[place - 1] : 0U;
  };
  const auto offset = static_cast<std::size_t>(scene_.State.ValueOffset[0]);
  for (std::size_t channel = 0; channel < 8; ++channel) {
    const bool current = channel < 4;
    if (!current && scene_.State.ChannelCount <= 4) break;
    std::uint32_t raw = 0;
    for (std::size_t i = 0; i < 4 && offset != 0; ++i) {
      raw = raw << 8U | byteAt(offset + 8 * channel + i);
    }
    const double whole = raw == 0x80000000U ? 2147483648.0 : static_cast<std::int32_t>(raw);
    const double unit =
        current ? scene_.Present.CurrentUnitFactor : scene_.Present.VoltageUnitFactor;
    const double value = whole / (current ? 1000 : 100000) * unit;
    Demand(scene_.Block.SignalValues.Row(row)[channel] == value,
           "a row holds what stands in its frame");
  }
}

}  // namespace fuzz
