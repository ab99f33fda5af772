#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/number_text.h"
#include "capture/acquisition_state.h"
#include "capture/run_counters.h"
#include "config/settings.h"
#include "platform/services/capture_object.h"

namespace packetroutines {

/// The sentences that a run tells on its quiet line. They hold what has become of the frames, and
/// what a user can do about it.
class WaitingText {
 public:
  WaitingText(const AcquisitionState& state, const config::Settings& settings,
              const config::RunSettings& present, const platform::NumberText& numbers)
      : state_(state), settings_(settings), present_(present), numbers_(numbers) {}

  /// A stream, 0 or 1, that is waited for, with all that has come in meanwhile.
  std::string Waiting(std::size_t stream, const RunCounters& came) const;
  /// A stream whose blocks come, although its samples were not found in its frames.
  std::string NotLocated(std::size_t stream) const;
  /// Two streams, of `located` channels each, one of which has no voltages; empty for others.
  std::string SharedChannels(const std::array<std::int16_t, 2>& located) const;
  /// The adapter is not there to deliver.
  static std::string Outage(platform::Presence presence);
  /// It is there again.
  static std::string OutageOver(platform::Presence outage);

  /// The text of a stream marks frames, that is, a station is chosen for it.
  bool IsChosen(std::size_t stream) const;

 private:
  std::string NoneChosen(const std::string& came) const;
  std::string Whereabouts(std::size_t stream, const RunCounters& came) const;
  std::string NoneHeld(const StreamCounters& own, const RunCounters& came) const;
  std::string Obstacle(std::size_t stream, const RunCounters& came) const;
  std::string Quoted(std::size_t stream) const;
  std::string Number(std::uint64_t count) const;

  const AcquisitionState& state_;
  const config::Settings& settings_;
  const config::RunSettings& present_;
  const platform::NumberText& numbers_;
};

}  // namespace packetroutines
