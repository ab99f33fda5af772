#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "console/bus/arrival_gaps.h"
#include "console/bus/channel_sums.h"
#include "sv/asdu.h"
#include "sv/frame.h"
#include "sv/sample_track.h"

namespace console {

/// Who sends a stream, and how it goes over the bus: what no two streams of a bus have in common.
struct StreamIdentity {
  /// The station ID in the sender's own octets.
  std::string SvId;
  sv::Address Source{};
  sv::Address Destination{};
  std::uint16_t AppId = 0;
  /// The innermost tag; nothing where the frames have none.
  std::optional<sv::VlanTag> Tag;
};

/// What a frame of a stream tells beside its samples, as it stood in the latest one.
struct StreamState {
  bool Simulated = false;
  /// ASDUs of this stream in a frame.
  std::uint32_t Asdus = 0;
  std::size_t Channels = 0;
  std::optional<std::uint32_t> ConfRev;
  std::optional<std::uint8_t> SmpSynch;
  std::optional<std::uint16_t> SmpRate;
  std::optional<std::uint16_t> SmpMod;
  std::string Datset;
  /// The network of a doubled bus that the latest frame came from, 'A' or 'B'; 0 without a trailer.
  char Lan = 0;
};

/// One stream of a bus, frame by frame: what it is, what is missing in it, and when it comes. What
/// is counted is counted of a stretch: from its first frame on, or from the last look.
class StreamFigures {
 public:
  using Time = std::chrono::microseconds;

  StreamFigures(StreamIdentity who, Time arrived);

  /// The ASDUs of a frame that are of this stream: the first of them, and how many there are.
  void Take(const sv::Frame& frame, const sv::Asdu& first, std::uint32_t asdus, Time arrived);
  /// Adds the samples of one of them to what is measured. Another wave begins anew.
  void Measure(const sv::Asdu& asdu, const NominalWave& wave);
  /// Samples a second to measure by: the rate, or the round of a sender that has a rate of its own;
  /// nothing before it has shown either.
  std::optional<std::uint32_t> KnownRate() const;
  /// A look: what comes from now on is a stretch of its own.
  void BeginStretch(Time now);

  const StreamIdentity& Who() const { return who_; }
  const StreamState& State() const { return state_; }
  std::uint64_t Frames() const { return frames_; }
  /// Samples received, missing, doubled and out of order in this stretch, and since it was met. A
  /// sample that may still come late is missing when it has not, so that no count ever goes back.
  sv::TrackTotals Totals() const;
  sv::TrackTotals TotalsOfAll() const;
  /// Nothing comes any more: what is missing now stays so.
  void End() { ended_ = true; }
  /// The computer's clock was set by so much since the last frame.
  void SetClock(Time step);
  std::uint64_t FramesOfAll() const { return framesBefore_ + frames_; }
  /// smpSynch was another one than in the frame before; in this stretch, and since it was met.
  std::uint64_t SynchChanges() const { return synchChanges_ - synchChangesBefore_; }
  std::uint64_t SynchChangesOfAll() const { return synchChanges_; }
  const ArrivalGaps& Gaps() const { return gaps_; }
  /// Channels of a second that was measured whole: a part of one holds no whole number of periods.
  /// 0 of any other.
  std::size_t MeasuredChannels() const;
  ChannelReading Reading(std::size_t channel) const { return sums_.Reading(channel); }
  /// Of this second, or of the one before while this one is not over.
  std::vector<ChannelReading> LatestReadings() const;
  Time First() const { return first_; }
  Time Last() const { return last_; }
  /// As they were measured between the first and the last frame of the stretch; nothing of a single
  /// one.
  std::optional<double> FramesASecond() const;
  std::optional<double> SamplesASecond() const;
  /// The rate that the standards name, where counter and times tell it.
  std::optional<std::uint32_t> NominalRate() const { return track_.Rate(); }

 private:
  std::vector<ChannelReading> Readings() const;

  StreamIdentity who_;
  StreamState state_;
  sv::SampleTrack track_;
  sv::TrackTotals totalsBefore_;
  std::uint64_t framesBefore_ = 0;
  std::uint64_t frames_ = 0;
  std::uint64_t synchChanges_ = 0;
  std::uint64_t synchChangesBefore_ = 0;
  ArrivalGaps gaps_;
  ChannelSums sums_;
  const NominalWave* wave_ = nullptr;
  /// Of the stretch before.
  std::vector<ChannelReading> readingsBefore_;
  /// Of the stretch, and of all.
  Time first_;
  Time last_;
  bool met_ = false;
  bool ended_ = false;
};

}  // namespace console
