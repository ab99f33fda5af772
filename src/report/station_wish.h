#pragma once

#include <string>
#include <string_view>

#include "capture/content_filter.h"
#include "platform/services/capture_object.h"
#include "platform/services/code_page.h"
#include "report/frame_station.h"

namespace packetroutines {

/// The text of a content filter names a station, and not that there is none.
bool IsStation(const std::string& id);

/// What a report would like to meet: a frame of the station whose ID is chosen; where there is
/// none, one that holds the ID as a text, because a filter may be a part of an ID.
class StationWish {
 public:
  explicit StationWish(const platform::CodePage& code)
      : code_(code), station_(code), filter_(code) {}

  /// The wish for a station, until the next one is made; none where there is no station.
  platform::FrameWish For(const std::string& id);
  /// The frame holds the ID as a text, wherever it stands.
  bool Holds(std::string_view frameText, const std::string& id) const;

 private:
  platform::Wanted Of(const platform::CapturedFrame& frame);

  const platform::CodePage& code_;
  FrameStation station_;
  ContentFilter filter_;
  std::string id_;
};

}  // namespace packetroutines
