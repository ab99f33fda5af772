#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "base/number_text.h"
#include "capture/stream_watch.h"
#include "config/settings.h"
#include "sv/sample_track.h"

namespace packetroutines {

/// The sentences on what makes a stream unfit for what the program does with it, as the structure
/// of its frames, their counters and their times tell.
class UnfitText {
 public:
  UnfitText(const config::Settings& settings, const platform::NumberText& numbers)
      : settings_(settings), numbers_(numbers) {}

  /// Frames that came twice or out of order in the last second; empty where there were none.
  std::string Doubled(std::size_t stream, const sv::TrackTotals& ofLastSecond) const;
  /// What the latest look at a frame tells against the stream; empty where it is fit. `rate` is in
  /// samples a second, where it is known.
  std::string Of(std::size_t stream, const StreamLook& look,
                 std::optional<std::uint32_t> rate) const;

 private:
  std::string Location(const std::string& name, const StreamLook& look) const;
  std::string Number(std::uint64_t count) const;

  const config::Settings& settings_;
  const platform::NumberText& numbers_;
};

}  // namespace packetroutines
