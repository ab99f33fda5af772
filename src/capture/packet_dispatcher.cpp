#include "capture/packet_dispatcher.h"

#include <string_view>

#include "base/failure.h"
#include "config/program_facts.h"

namespace packetroutines {

using platform::CapturedFrame;
using platform::Crlf;
using platform::Failure;
using platform::Flow;
using platform::Icon;
using platform::Verdict;

namespace {

/// Upper index of `PacketBytes` while the frame length is taken.
constexpr std::int16_t LengthFrameUpper = 500;
/// Pause between two frames of the stream finder, in ms.
constexpr std::int32_t FinderPause = 500;

/// A frame that serves something of its own is not looked at any further.
template <typename Serve>
Flow LeaveAfter(bool wanted, Serve serve) {
  if (!wanted) return Flow::Next;
  serve();
  return Flow::Leave;
}

}  // namespace

PacketDispatcher::PacketDispatcher(AcquisitionState& state, const config::Settings& settings,
                                   const config::RunSettings& present,
                                   const PacketControls& controls, const PacketParts& parts,
                                   const Plugs& upper, const PacketTexts& texts,
                                   const platform::Services& services)
    : state_(state),
      streams_(state),
      settings_(settings),
      present_(present),
      controls_(controls),
      parts_(parts),
      upper_(upper),
      numbers_(texts.Numbers),
      services_(services),
      run_(services.Program,
           [this](const Failure& failure, int attempt) { return OnFailure(failure, attempt); }),
      filters_{ContentFilter(texts.Code), ContentFilter(texts.Code)} {}

void PacketDispatcher::aPacketX_OnPacket(const CapturedFrame& pPacket) {
  bool first = false;
  bool second = false;
  run_(
      [&] {
        bytes_.ClearText();
        if (!state_.CaptureRunning) return Flow::Leave;
        ++streams_.Counters.Frames;
        return LeaveAfter(state_.PacketLengthPending, [&] { MeasureLength(pPacket); });
      },
      [&] {
        return LeaveAfter(state_.ReportRequested, [&] {
          bytes_.Redim(state_.PacketLength);
          ServeReport(pPacket);
        });
      },
      [&] { return CopyFrame(pPacket); },
      [&] {
        FollowFilters();
        // It is searched where it came: for a copy that was just made the processor would wait.
        const std::string_view text = TextOf(pPacket);
        first = filters_[0].HoldsBehindStart(text);
        second = filters_[1].HoldsBehindStart(text);
      },
      [&] { return LeaveAfter(state_.LookingForID, [&] { ServeFinder(); }); },
      [&] { return first ? FirstStream(pPacket.Arrived) : Flow::Next; },
      [&] {
        if (second) SecondStream(pPacket.Arrived);
      });
}

void PacketDispatcher::MeasureLength(const CapturedFrame& pPacket) {
  run_(
      [&] {
        bytes_.Redim(LengthFrameUpper);
        parts_.Run.LengthComes();
        TakePacketLength(pPacket);
      },
      [&] { CountUnsearched(pPacket, &StreamCounters::SetLength); });
}

void PacketDispatcher::TakePacketLength(const CapturedFrame& pPacket) {
  parts_.Run.TakeLength(platform::Narrow<std::int16_t>(pPacket.Length));
}

Flow PacketDispatcher::StopCapture() {
  return parts_.Capture.StopCapture() ? Flow::Next : Flow::Leave;
}

void PacketDispatcher::ServeReport(const CapturedFrame& pPacket) {
  run_(
      [&] {
        parts_.Run.Clear("Report");
        return StopCapture();
      },
      [&] { ReportFrame(pPacket); });
}

void PacketDispatcher::ReportFrame(const CapturedFrame& pPacket) {
  run_([&] { controls_.Report.Command2.Value = false; }, [&] { services_.Events.Pump(); },
       [&] {
         if (LongerThanExpected(pPacket)) throw Failure(platform::failure::SubscriptOutOfRange);
         bytes_.Copy(pPacket.Bytes);
       },
       [&] { upper_.Report->ReportAnalyse(bytes_); },
       [&] { upper_.Report->FrameReported(pPacket); },
       [&] { controls_.Report.Command2.Visible = true; },
       [&] { controls_.Report.Command4.Enabled = true; });
}

bool PacketDispatcher::LongerThanExpected(const CapturedFrame& pPacket) const {
  return pPacket.Length > static_cast<std::size_t>(bytes_.Upper());
}

inline Flow PacketDispatcher::CopyFrame(const CapturedFrame& pPacket) {
  // Of one that is dropped, what was expected of it is the text of the last frame, which a
  // recording's log reads at the stop.
  bytes_.Take(pPacket.Bytes, state_.PacketLength);
  if (!LongerThanExpected(pPacket)) return Flow::Next;
  ++streams_.Counters.TooLong;
  if (streams_.LooksAtLonger > 0) {
    --streams_.LooksAtLonger;
    CountUnsearched(pPacket, &StreamCounters::TooLong);
  }
  return Flow::Leave;
}

void PacketDispatcher::CountUnsearched(const CapturedFrame& pPacket,
                                       std::uint64_t StreamCounters::*count) {
  FollowFilters();
  for (std::size_t stream = 0; stream < filters_.size(); ++stream) {
    if (filters_[stream].HoldsBehindStart(TextOf(pPacket))) {
      ++(streams_.Counters.Streams[stream].*count);
    }
  }
}

void PacketDispatcher::FollowFilters() {
  const config::StreamTexts& contents = settings_.FilterContent;
  if (contents.Changes() == filtersTaken_) return;
  for (std::size_t stream = 0; stream < filters_.size(); ++stream) {
    filters_[stream].Take(contents[stream]);
  }
  filtersTaken_ = contents.Changes();
}

void PacketDispatcher::ServeFinder() {
  std::string id;
  run_([&] { return StopCapture(); },
       [&] {
         parts_.Run.CallOffWatchdog();
         parts_.Run.RestartPause(FinderPause);
       },
       [&] { id = upper_.Report->ReportAnalyse(bytes_); }, [&] { parts_.Run.Restart(); },
       [&] { upper_.Finder->AddStreamToList(id); });
}

inline Flow PacketDispatcher::ExtractFirst(bool& signalOk) {
  if (AnyModeSet(state_, TakesSamples)) {
    parts_.Builder.BuildingSignals(frameIndex_[0], bytes_, signalOk);
    Advance(frameIndex_[0]);
    if (state_.LookingForRecording) {
      parts_.Builder.StoreRecordSample(ringIndex_[0], frameIndex_[0] - 1);
      ++ringIndex_[0];
    }
  }
  const bool ringFull = state_.LookingForRecording && ringIndex_[0] == RecordRings::Cells;
  return ringFull ? StoreRing() : Flow::Next;
}

Flow PacketDispatcher::FirstStream(StreamWatch::Time arrived) {
  bool signalOk = false;
  return run_(
      [&] {
        if (!state_.OffsetsKnown[0]) LocateFirst();
      },
      [&] { Count(0, arrived); }, [&] { return ExtractFirst(signalOk); },
      [&] {
        if (frameIndex_[0] == present_.BaseSamples) CompleteBlock(signalOk);
      });
}

void PacketDispatcher::Count(std::size_t stream, StreamWatch::Time arrived) {
  StreamCounters& counters = streams_.Counters.Streams[stream];
  ++counters.HeldId;
  if (state_.SamplesLocated[stream] == 0) ++counters.NotLocated;
  parts_.Watch.Take(stream, bytes_, arrived);
}

void PacketDispatcher::FindDataOffsets(std::size_t stream) {
  // The cells tell how long the frame at hand may be: a block that was shown from within its event
  // may have begun a run with longer frames.
  parts_.Locator.FindDataOffsets(bytes_, static_cast<std::int16_t>(bytes_.Upper()), stream);
  parts_.Watch.BeginBurst(stream);
}

void PacketDispatcher::LocateFirst() {
  FindDataOffsets(0);
  parts_.Locator.FindQualitySettings(bytes_, 0);
  frameIndex_[0] = 0;
  ringIndex_[0] = 0;
  streams_.OffsetsKnown[0] = true;
  parts_.Run.CallOffWatchdog();
  parts_.Run.ReleaseButtons();
}

Flow PacketDispatcher::StoreRing() {
  // The block that fills the ring is not counted, and the frame is not looked at for the second
  // stream; the recorder allows for both.
  ringIndex_[0] = 0;
  frameIndex_[0] = 0;
  run_([&] { upper_.Recorder->WriteRecordBlock(0); }, [&] { parts_.Waiting.BlockShown(); });
  return Flow::Leave;
}

void PacketDispatcher::SecondStream(StreamWatch::Time arrived) {
  run_(
      [&] {
        if (!state_.OffsetsKnown[1]) LocateSecond();
      },
      [&] { Count(1, arrived); },
      [&] { return state_.LookingForRecording ? ExtractSecond() : Flow::Next; },
      [&] {
        if (frameIndex_[1] != present_.BaseSamples) return;
        frameIndex_[1] = 0;
        Advance(streams_.BlockCount2);
        run_([&] { services_.Events.Pump(); });
      });
}

void PacketDispatcher::LocateSecond() {
  // It is the first stream's row that starts again, so that the first stream's running block
  // restarts.
  FindDataOffsets(1);
  parts_.Locator.FindQualitySettings(bytes_, 0);
  frameIndex_[0] = 0;
  ringIndex_[1] = 0;
  streams_.OffsetsKnown[1] = true;
  parts_.Run.CallOffWatchdog();
}

Flow PacketDispatcher::ExtractSecond() {
  bool signalOk = false;
  parts_.Builder.BuildingSignals2(frameIndex_[1], bytes_, signalOk);
  Advance(frameIndex_[1]);
  parts_.Builder.StoreRecordSample2(ringIndex_[1], frameIndex_[1] - 1);
  ++ringIndex_[1];
  if (ringIndex_[1] != RecordRings::Cells) return Flow::Next;
  ringIndex_[1] = 0;
  frameIndex_[1] = 0;
  run_([&] { upper_.Recorder->WriteRecordBlock(1); });
  return Flow::Leave;
}

Verdict PacketDispatcher::OnFailure(const Failure& failure, int attempt) {
  if (failure.Number() == platform::failure::HarmlessStop) return Verdict::SkipStep;
  if (failure.Number() == platform::failure::TypeMismatch ||
      failure.Number() == platform::failure::SubscriptOutOfRange) {
    services_.Dialogs.Show(
        {"", "Debug error: " + failure.Text() + Crlf + Crlf + "Please inform us under " +
                 config::SupportAddress + " about this error." + Crlf +
                 "It would be useful to get a screenshot together wit a small description" + Crlf +
                 "how the error occured." + Crlf + Crlf + "We apologise about this trouble!"});
    return Verdict::EndProgram;
  }
  return parts_.Retry.Show(
      {"unknown exception",
       std::string("unknown error") + Crlf + failure.Text() + "while 'onPacket' event",
       Icon::Critical},
      attempt);
}

}  // namespace packetroutines
