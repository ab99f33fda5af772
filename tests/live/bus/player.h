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

/// Plays a profile: with each sample the senders send one after another, always in the same order.
class Player {
 public:
  /// Within the time of a sample each sender begins so many us behind the one before it; with 0
  /// they follow each other as fast as the wire takes them.
  Player(FarEnd& wire, const Profile& profile, std::int64_t spacingUs);

  void Play(SampleClock& clock, std::int64_t sample);
  /// How many frames of each stream were sent, as JSON.
  std::string Sent() const;

 private:
  struct Stream {
    std::string Id;
    int Asdus;
    /// One a network.
    std::vector<FrameEncoder> Frames;
    std::int64_t Sent = 0;
  };

  FarEnd& wire_;
  bool swapped_;
  std::int64_t spacingUs_;
  std::vector<Stream> streams_;
  std::optional<OtherProtocols> others_;
};

}  // namespace bus
