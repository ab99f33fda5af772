#include "report/station_wish.h"

#include <string_view>

#include "config/setup_view.h"

namespace packetroutines {

using platform::CapturedFrame;
using platform::Wanted;

bool IsStation(const std::string& id) {
  return !id.empty() && id != config::NoContent;
}

platform::FrameWish StationWish::For(const std::string& id) {
  if (!IsStation(id)) return {};
  id_ = id;
  filter_.Take(id);
  return [this](const CapturedFrame& frame) { return Of(frame); };
}

bool StationWish::Holds(std::string_view frameText, const std::string& id) const {
  ContentFilter filter(code_);
  filter.Take(id);
  return filter.Holds(frameText);
}

Wanted StationWish::Of(const CapturedFrame& frame) {
  if (station_.Id(frame, LengthInCells(frame)) == id_) return Wanted::Most;
  return filter_.Holds(TextOf(frame)) ? Wanted::Rather : Wanted::No;
}

}  // namespace packetroutines
