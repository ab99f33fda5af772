#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/number_text.h"
#include "base/trap.h"
#include "capture/acquisition_state.h"
#include "capture/capture_session.h"
#include "capture/consumers.h"
#include "capture/content_filter.h"
#include "capture/packet_bytes.h"
#include "capture/retry_box.h"
#include "capture/run_control.h"
#include "capture/sample_locator.h"
#include "capture/signal_builder.h"
#include "capture/stream_watch.h"
#include "capture/waiting_line.h"
#include "config/settings.h"
#include "forms/recorder_controls.h"
#include "forms/report_controls.h"
#include "platform/services/capture_object.h"
#include "platform/services/code_page.h"
#include "platform/services/services.h"

namespace packetroutines {

/// The parts of the acquisition that the packet event works with.
struct PacketParts {
  RunControl& Run;
  CaptureSession& Capture;
  SampleLocator& Locator;
  SignalBuilder& Builder;
  RetryBox& Retry;
  WaitingLine& Waiting;
  StreamWatch& Watch;
};

/// What the packet event shows and switches on the form.
struct PacketControls {
  forms::RecorderControls& Recorder;
  forms::ReportControls& Report;
};

/// How the packet event reads the texts of a frame, and writes numbers.
struct PacketTexts {
  const platform::NumberText& Numbers;
  const platform::CodePage& Code;
};

/// The packet event: decides for each received frame what it is for, extracts its values, counts
/// blocks and hands them to the live view. Everything happens inside the event, frame by frame.
class PacketDispatcher : public PacketConsumer {
 public:
  PacketDispatcher(AcquisitionState& state, const config::Settings& settings,
                   const config::RunSettings& present, const PacketControls& controls,
                   const PacketParts& parts, const Plugs& upper, const PacketTexts& texts,
                   const platform::Services& services);

  void aPacketX_OnPacket(const platform::CapturedFrame& pPacket) override;
  /// The frame that came last.
  const PacketBytes& Bytes() const { return bytes_; }

 private:
  void MeasureLength(const platform::CapturedFrame& pPacket);
  void ServeReport(const platform::CapturedFrame& pPacket);
  /// The cells were made for the length that the run expects.
  bool LongerThanExpected(const platform::CapturedFrame& pPacket) const;
  platform::Flow CopyFrame(const platform::CapturedFrame& pPacket);
  /// The filters search what the settings hold.
  void FollowFilters();
  void ServeFinder();
  /// Counts a frame that is not searched for the streams, for those whose text it holds.
  void CountUnsearched(const platform::CapturedFrame& pPacket,
                       std::uint64_t StreamCounters::*count);
  /// Counts a frame of a stream, and follows its counter.
  void Count(std::size_t stream, StreamWatch::Time arrived);
  void TakePacketLength(const platform::CapturedFrame& pPacket);
  /// Stops capture; Leave where a newer run has begun in the pumps of the stop.
  platform::Flow StopCapture();
  void ReportFrame(const platform::CapturedFrame& pPacket);

  platform::Flow FirstStream(StreamWatch::Time arrived);
  void FindDataOffsets(std::size_t stream);
  void LocateFirst();
  platform::Flow ExtractFirst(bool& signalOk);
  platform::Flow StoreRing();
  void CompleteBlock(bool signalOk);
  /// Stops for a live view, shows it the block unless that is silent, and has capture restarted.
  /// `current()` is False for a silent block and for one of a station that is not chosen any more.
  template <typename Current, typename Show>
  void ShowBlock(Current current, Show show);
  void PlotBlock();
  template <typename Current>
  void BlockForValues(Current current);
  void BlockForRecording();

  void SecondStream(StreamWatch::Time arrived);
  void LocateSecond();
  platform::Flow ExtractSecond();

  platform::Verdict OnFailure(const platform::Failure& failure, int attempt);

  const AcquisitionState& state_;
  StreamFields& streams_;
  const config::Settings& settings_;
  const config::RunSettings& present_;
  PacketControls controls_;
  PacketParts parts_;
  const Plugs& upper_;
  const platform::NumberText& numbers_;
  platform::Services services_;
  platform::Routine run_;

  PacketBytes bytes_;
  std::array<ContentFilter, 2> filters_;
  /// The changes of the contents that the filters have taken.
  std::uint32_t filtersTaken_ = 0;
  /// Next row of the block arrays of each stream.
  std::array<std::int32_t, 2> frameIndex_{};
  /// Next cell of the record rings of each stream.
  std::array<std::int16_t, 2> ringIndex_{};
};

}  // namespace packetroutines
