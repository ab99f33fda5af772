#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "clock.h"
#include "far_end.h"
#include "other_protocols.h"
#include "profiles.h"

namespace bus {

/// What a network does to all frames for a while.
struct Disturbance {
  /// Each frame goes out a second time.
  bool Twice = false;
  /// Now and then two frames that follow each other change places.
  bool Swapped = false;
};

/// Plays a profile: with each sample the senders send one after another, always in the same order.
class Player {
 public:
  /// Within the time of a sample each sender begins so many us behind the one before it; with 0
  /// they follow each other as fast as the wire takes them.
  Player(FarEnd& wire, const Profile& profile, std::int64_t spacingUs);

  /// From this sample on, but never between two that have changed places.
  void Disturb(Disturbance disturbance, std::int64_t sample);
  void Play(SampleClock& clock, std::int64_t sample);
  /// So many samples are not sent.
  void LeaveOut(std::int64_t samples) { leftOutSamples_ += samples; }
  /// How many frames of each stream were sent, as JSON; and how many samples went out a second
  /// time, or behind a later one, or not at all, where any did.
  std::string Sent() const;

 private:
  struct Stream {
    std::string Id;
    int Asdus;
    /// One a network.
    std::vector<FrameEncoder> Frames;
    std::int64_t Sent = 0;
  };

  void PutAll(SampleClock& clock, std::int64_t sample, std::int64_t sent);

  FarEnd& wire_;
  bool alwaysSwapped_;
  Disturbance disturbance_;
  std::int64_t doubledSamples_ = 0;
  std::int64_t lateSamples_ = 0;
  std::int64_t leftOutSamples_ = 0;
  std::int64_t spacingUs_;
  std::vector<Stream> streams_;
  std::optional<OtherProtocols> others_;
};

}  // namespace bus
