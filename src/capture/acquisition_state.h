#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <string>

#include "capture/run_counters.h"
#include "platform/stream_format.h"

namespace packetroutines {

/// Counts one more row or block, but not beyond the end of the number: rows that lie behind a block
/// made shorter are counted on, and a run may last for years.
inline void Advance(std::int32_t& count) {
  if (count < std::numeric_limits<std::int32_t>::max()) ++count;
}

/// What a run is: which mode is on, whether capture delivers, and what ends a run from outside.
/// `RunControl` alone writes it. Everything happens on one thread; the order in which the flags are
/// written is what keeps the handlers apart.
struct RunFields {
  /// Capture was started and not yet stopped.
  bool CaptureRunning = false;
  /// The next frame only sets `PacketLength`.
  bool PacketLengthPending = true;
  /// The length that frames are expected to have at most, in bytes.
  std::int16_t PacketLength = 0;

  /// The mode flags; several can be set at once.
  bool ReportRequested = false;
  bool LookingForScope = false;
  bool LookingForValues = false;
  bool LookingForPhases = false;
  bool LookingForRecording = false;
  bool LookingForID = false;

  /// Counts how often a page was left that a run may belong to: by a change of the tab, by the
  /// exit, by the end of the stream finder. That ends every run, also one whose next burst is about
  /// to start (`PageVisit`).
  std::uint32_t PagesLeft = 0;
  /// Pages that are being left, one inside the other. What comes due in the pumps of that starts
  /// nothing. The end of the program counts as one that is never over.
  std::int32_t Leaving = 0;
  /// Counts the choices of the other station during a run. A block that was gathered before such a
  /// choice is not shown behind it.
  std::uint32_t StationChanges = 0;
};

/// What the packet event has found out about the two streams.
struct StreamFields {
  /// Per stream: the offsets were located in this burst.
  std::array<bool, 2> OffsetsKnown{};
  /// Complete blocks of each stream since the run began.
  std::int32_t BlockCount = 0;
  std::int32_t BlockCount2 = 0;

  /// Per stream: 1-based position of the high byte of smpCnt.
  std::array<std::int16_t, 2> SampleCountOffset{};
  /// Per stream: 1-based position of the first byte of seqData.
  std::array<std::int16_t, 2> ValueOffset{};
  /// Per stream: the channels of the seqData that the last scan found; 0 where it found none, and
  /// older offsets stay in use.
  std::array<std::int16_t, 2> SamplesLocated{};
  /// Transmitted channels, the length of seqData over 8; shared by both streams.
  std::int16_t ChannelCount = 0;

  RunCounters Counters;
  /// So many of the next frames that are longer than expected are looked at for whose they are.
  std::int32_t LooksAtLonger = 0;
};

/// What the Recorder view and the tabs share.
struct RecordFields {
  /// While True the handlers of the recorder's buttons do nothing.
  bool RecorderBusy = false;
  /// Bare name of the recording in work, or a placeholder before the first one.
  std::string RecordFileName;
};

/// What the packet event and the live views share.
struct ReadingFields {
  /// The real-time value: one channel, 1 to 8, recomputed at every frame.
  bool RealTimeMode = false;
  std::int16_t RealTimeChannel = 1;
  /// Latest AC estimate of each channel, in the chosen units.
  std::array<double, platform::channels::Count> RmsValues{};
};

/// The flags and counters that steer the acquisition, one struct for each who writes them.
struct AcquisitionState : RunFields, StreamFields, RecordFields, ReadingFields {};

/// A stay on a page. Whoever pumps asks behind the pump whether the page is still the one that it
/// began on: what is there by then is another view's.
class PageVisit {
 public:
  explicit PageVisit(const RunFields& run) : run_(run), page_(run.PagesLeft) {}

  bool Over() const { return run_.PagesLeft != page_; }
  /// The visit begins here and now.
  void BeginAnew() { page_ = run_.PagesLeft; }

 private:
  const RunFields& run_;
  std::uint32_t page_;
};

}  // namespace packetroutines
