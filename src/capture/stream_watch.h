#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "capture/acquisition_state.h"
#include "capture/packet_bytes.h"
#include "config/settings.h"
#include "platform/clock.h"
#include "sv/asdu.h"
#include "sv/fault.h"
#include "sv/sample_track.h"

namespace packetroutines {

/// What a stream is by the structure of its latest frame that was looked at.
struct StreamLook {
  sv::Fault Why = sv::Fault::None;
  /// ASDUs of a frame, and channels of its first.
  std::uint32_t Asdus = 0;
  std::size_t Channels = 0;
  bool Simulated = false;
  /// A bit for each of the first eight channels whose quality is invalid.
  std::uint32_t Invalid = 0;
  /// Where the samples are, and where the scan of the burst has found them: 1-based, 0 for nowhere.
  std::int32_t SamplesAt = 0;
  std::int32_t FoundAt = 0;
  /// The scan of the burst has found samples.
  bool Located = false;
  /// The scan has found neither the samples nor the counter elsewhere than they are.
  bool WellLocated = true;
};

/// Samples a second that a block assumes: 80 a period of the mains.
std::uint32_t AssumedRate(const config::Settings& settings);

/// Changes of smpSynch since the last look of a recording.
struct SynchChanges {
  sv::Happened Changed;
  std::uint8_t From = 0;
  std::uint8_t To = 0;
};

/// Follows both streams beside the packet event: the counters and times of all their frames, and
/// the structure of the first frame of a burst and of one twice a second. It only looks on and
/// steers nothing.
class StreamWatch {
 public:
  using Time = std::chrono::microseconds;

  StreamWatch(const StreamFields& streams, const config::Settings& settings,
              const platform::Clock& clock)
      : streams_(streams), settings_(settings), clock_(clock) {}

  /// A burst begins: the samples of the stream were located.
  void BeginBurst(std::size_t stream);
  /// A frame of the stream.
  void Take(std::size_t stream, const PacketBytes& bytes, Time arrived) {
    Watched& watched = watched_[stream];
    if (watched.Asked) LookAt(stream, bytes, arrived);
    const std::uint8_t* const counter = bytes.Run(watched.CounterAt, 2);
    if (counter == nullptr) return;
    const auto count = static_cast<std::uint32_t>(counter[0] << 8U | counter[1]);
    if (!watched.Track.TakeNext(count, arrived)) TakeOdd(watched, count, arrived);
    const std::uint8_t* const synch = bytes.Run(watched.SynchAt, 1);
    if (synch != nullptr && *synch != watched.Synch) {
      NoteSynch(watched, *synch, arrived);
    }
  }
  /// The structure of the next frame of each stream is looked at.
  void LookAgain();

  /// The frame that the burst began with; empty before there was one.
  const std::vector<std::uint8_t>& FirstFrame(std::size_t stream) const {
    return watched_[stream].First;
  }
  Time FirstArrived(std::size_t stream) const { return watched_[stream].FirstArrived; }
  Time WallTime() const { return clock_.WallTime(); }
  /// When the latest frame of the stream came, by the clock as it shows now.
  Time LastArrived(std::size_t stream) const {
    return watched_[stream].Track.Last() + watched_[stream].ClockSet;
  }
  /// What the stream is in this burst; nothing before a frame of it was looked at.
  const std::optional<StreamLook>& Look(std::size_t stream) const { return watched_[stream].Look; }
  const sv::SampleTrack& Track(std::size_t stream) const { return watched_[stream].Track; }
  const SynchChanges& Synch(std::size_t stream) const { return watched_[stream].Changes; }
  /// A recording has taken what the stream met until here; its places count from here on.
  void BeginStretch(std::size_t stream);
  /// By how much the computer's clock was set since this was asked before; 0 where it was not.
  Time TakeClockStep();

 private:
  struct Watched {
    sv::SampleTrack Track;
    std::optional<StreamLook> Look;
    SynchChanges Changes;
    std::vector<std::uint8_t> First;
    Time FirstArrived{0};
    /// By how much the clock was set since the latest frame, or before it came.
    Time ClockSet{0};
    /// 1-based places in the frames of this burst; before the first frame they lie nowhere.
    std::int32_t CounterAt = Nowhere;
    std::int32_t SynchAt = Nowhere;
    std::uint32_t Step = 1;
    std::uint8_t Synch = 0;
    bool Asked = false;
    bool Begins = false;
  };

  static constexpr std::int32_t Nowhere = -1;

  void LookAt(std::size_t stream, const PacketBytes& bytes, Time arrived);
  void Place(Watched& watched, const StreamLook& look, const sv::Asdu& first,
             std::int32_t counterFound);
  /// Takes a frame that does not come right behind the one before.
  void TakeOdd(Watched& watched, std::uint32_t count, Time arrived);
  /// Looks whether the clock was set.
  void AskClock();
  /// A frame bears another time than the one before lets expect: the clock may have been set
  /// between.
  void FollowClock(Watched& watched, Time arrived);
  void NoteSynch(Watched& watched, std::uint8_t synch, Time arrived);

  const StreamFields& streams_;
  const config::Settings& settings_;
  const platform::Clock& clock_;
  std::array<Watched, 2> watched_;
  /// What the computer's clock shows before what the monotonic one does, when it was asked last.
  std::optional<Time> ahead_;
  Time clockStep_{0};
};

}  // namespace packetroutines
