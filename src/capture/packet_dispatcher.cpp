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
                                   const PacketControls& controls, CaptureSession& capture,
                                   SampleLocator& locator, SignalBuilder& builder,
                                   PacketConsumers consumers, PacketServices services)
    : state_(state),
      settings_(settings),
      present_(present),
      controls_(controls),
      capture_(capture),
      locator_(locator),
      builder_(builder),
      consumers_(consumers),
      services_(services),
      run_(services.Program,
           [this](const Failure& failure, int attempt) { return OnFailure(failure, attempt); }),
      filters_{ContentFilter(services.Code), ContentFilter(services.Code)} {}

void PacketDispatcher::aPacketX_OnPacket(const CapturedFrame& pPacket) {
  bool first = false;
  bool second = false;
  run_([&] { bytes_.ClearText(); },
       [&] { return state_.CaptureRunning ? Flow::Next : Flow::Leave; },
       [&] { ++state_.Counters.Frames; },
       [&] { return LeaveAfter(state_.PacketLengthPending, [&] { MeasureLength(pPacket); }); },
       [&] { bytes_.Redim(state_.PacketLength); },
       [&] { return LeaveAfter(state_.ReportRequested, [&] { ServeReport(pPacket); }); },
       [&] { return CopyFrame(pPacket); },
       [&] {
         // A text at the very first byte, which is where an empty one is found, does not count.
         first = filters_[0].Position(bytes_.Text(), settings_.FilterContent[0]) > 1;
         second = filters_[1].Position(bytes_.Text(), settings_.FilterContent[1]) > 1;
       },
       [&] { return LeaveAfter(state_.LookingForID, [&] { ServeFinder(); }); },
       [&] { return first ? FirstStream() : Flow::Next; },
       [&] {
         if (second) SecondStream();
       });
}

void PacketDispatcher::MeasureLength(const CapturedFrame& pPacket) {
  run_([&] { bytes_.Redim(LengthFrameUpper); }, [&] { state_.PacketLengthPending = false; },
       [&] { TakePacketLength(pPacket); },
       [&] { CountUnsearched(pPacket, &StreamCounters::SetLength); });
}

void PacketDispatcher::TakePacketLength(const CapturedFrame& pPacket) {
  state_.PacketLength = platform::Narrow<std::int16_t>(pPacket.Length);
  state_.PacketLengthPending = false;
}

void PacketDispatcher::ServeReport(const CapturedFrame& pPacket) {
  run_([&] { state_.ReportRequested = false; },
       [&] { return capture_.StopCapture() ? Flow::Next : Flow::Leave; },
       [&] { ReportFrame(pPacket); });
}

void PacketDispatcher::ReportFrame(const CapturedFrame& pPacket) {
  run_([&] { controls_.Report.Command2.Value = false; }, [&] { services_.Events.Pump(); },
       [&] {
         if (LongerThanExpected(pPacket)) throw Failure(platform::failure::SubscriptOutOfRange);
         bytes_.Copy(pPacket.Bytes);
       },
       [&] { consumers_.Report.ReportAnalyse(bytes_); },
       [&] { controls_.Report.Command2.Visible = true; },
       [&] { controls_.Report.Command4.Enabled = true; });
}

bool PacketDispatcher::LongerThanExpected(const CapturedFrame& pPacket) const {
  return pPacket.Length > static_cast<std::size_t>(bytes_.Upper());
}

Flow PacketDispatcher::CopyFrame(const CapturedFrame& pPacket) {
  if (LongerThanExpected(pPacket)) {
    // It is dropped. What was expected of it is the text of the last frame, which a recording's log
    // reads at the stop.
    ++state_.Counters.TooLong;
    if (state_.LooksAtLonger > 0) {
      --state_.LooksAtLonger;
      CountUnsearched(pPacket, &StreamCounters::TooLong);
    }
    bytes_.Copy(pPacket.Bytes);
    return Flow::Leave;
  }
  bytes_.Copy(pPacket.Bytes);
  return Flow::Next;
}

void PacketDispatcher::CountUnsearched(const CapturedFrame& pPacket,
                                       std::uint64_t StreamCounters::*count) {
  const std::string_view text(reinterpret_cast<const char*>(pPacket.Bytes.data()),
                              pPacket.Bytes.size());
  for (std::size_t stream = 0; stream < filters_.size(); ++stream) {
    if (filters_[stream].Position(text, settings_.FilterContent[stream]) > 1) {
      ++(state_.Counters.Streams[stream].*count);
    }
  }
}

void PacketDispatcher::ServeFinder() {
  std::string id;
  run_([&] { return capture_.StopCapture() ? Flow::Next : Flow::Leave; },
       [&] { controls_.Timers.Timer1.Enabled = false; },
       [&] { controls_.Timers.Timer2.Interval = FinderPause; },
       [&] { id = consumers_.Report.ReportAnalyse(bytes_); },
       [&] { controls_.Timers.Timer2.Enabled = true; },
       [&] { consumers_.Finder.AddStreamToList(id); });
}

Flow PacketDispatcher::FirstStream() {
  bool signalOk = false;
  return run_(
      [&] {
        if (!state_.OffsetsKnown[0]) LocateFirst();
      },
      [&] { Count(0); }, [&] { return ExtractFirst(signalOk); },
      [&] {
        if (frameIndex_[0] == present_.BaseSamples) CompleteBlock(signalOk);
      });
}

void PacketDispatcher::Count(std::size_t stream) {
  StreamCounters& counters = state_.Counters.Streams[stream];
  ++counters.HeldId;
  if (state_.SamplesLocated[stream] == 0) ++counters.NotLocated;
}

void PacketDispatcher::FindDataOffsets(std::size_t stream) {
  // The cells tell how long the frame at hand may be: a block that was shown from within its event
  // may have begun a run with longer frames.
  locator_.FindDataOffsets(bytes_, static_cast<std::int16_t>(bytes_.Upper()), stream);
}

void PacketDispatcher::LocateFirst() {
  run_([&] { FindDataOffsets(0); }, [&] { locator_.FindQualitySettings(bytes_, 0); },
       [&] { frameIndex_[0] = 0; }, [&] { ringIndex_[0] = 0; },
       [&] { state_.OffsetsKnown[0] = true; }, [&] { controls_.Timers.Timer1.Enabled = false; },
       [&] { controls_.Timers.Timer3.Enabled = true; });
}

Flow PacketDispatcher::ExtractFirst(bool& signalOk) {
  if (AnyModeSet(state_, TakesSamples)) {
    builder_.BuildingSignals(frameIndex_[0], bytes_, signalOk);
    Advance(frameIndex_[0]);
    if (state_.LookingForRecording) {
      builder_.StoreRecordSample(ringIndex_[0], frameIndex_[0] - 1);
      ++ringIndex_[0];
    }
  }
  if (!state_.LookingForRecording || ringIndex_[0] != RecordRings::Cells) return Flow::Next;
  // The block that fills the ring is not counted, and the frame is not looked at for the second
  // stream; the recorder allows for both.
  run_([&] { ringIndex_[0] = 0; }, [&] { frameIndex_[0] = 0; },
       [&] { consumers_.Recorder.WriteRecordBlock(0); }, [&] { consumers_.Views.BlockShown(); });
  return Flow::Leave;
}

void PacketDispatcher::SecondStream() {
  run_(
      [&] {
        if (!state_.OffsetsKnown[1]) LocateSecond();
      },
      [&] { Count(1); }, [&] { return state_.LookingForRecording ? ExtractSecond() : Flow::Next; },
      [&] {
        if (frameIndex_[1] != present_.BaseSamples) return;
        run_([&] { frameIndex_[1] = 0; }, [&] { Advance(state_.BlockCount2); },
             [&] { services_.Events.Pump(); });
      });
}

void PacketDispatcher::LocateSecond() {
  // It is the first stream's row that starts again, so that the first stream's running block
  // restarts.
  run_([&] { FindDataOffsets(1); }, [&] { locator_.FindQualitySettings(bytes_, 0); },
       [&] { frameIndex_[0] = 0; }, [&] { ringIndex_[1] = 0; },
       [&] { state_.OffsetsKnown[1] = true; }, [&] { controls_.Timers.Timer1.Enabled = false; });
}

Flow PacketDispatcher::ExtractSecond() {
  bool signalOk = false;
  builder_.BuildingSignals2(frameIndex_[1], bytes_, signalOk);
  Advance(frameIndex_[1]);
  builder_.StoreRecordSample2(ringIndex_[1], frameIndex_[1] - 1);
  ++ringIndex_[1];
  if (ringIndex_[1] != RecordRings::Cells) return Flow::Next;
  run_([&] { ringIndex_[1] = 0; }, [&] { frameIndex_[1] = 0; },
       [&] { consumers_.Recorder.WriteRecordBlock(1); });
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
  return services_.Trouble.Show(
      {"unknown exception",
       std::string("unknown error") + Crlf + failure.Text() + "while 'onPacket' event",
       Icon::Critical},
      attempt);
}

}  // namespace packetroutines
