#include "report/sender_wish.h"

#include <algorithm>
#include <string_view>

#include "capture/content_filter.h"

namespace packetroutines {

using platform::CapturedFrame;
using platform::Wanted;

namespace {

/// Where the source address stands in a frame, from 0.
constexpr std::size_t SourceAt = 6;
constexpr std::size_t AddressBytes = 6;
/// More than a bus has senders; beyond them none is kept apart.
constexpr std::size_t MostSenders = 4096;

void Keep(std::string_view name, std::set<std::string, std::less<>>& names) {
  if (names.size() < MostSenders) names.emplace(name);
}

}  // namespace

std::string_view SourceIn(std::string_view frame) {
  return frame.size() < SourceAt ? std::string_view() : frame.substr(SourceAt, AddressBytes);
}

void SenderWish::Clear() {
  sources_.clear();
  structural_.clear();
  unreadable_.clear();
  tooLong_ = 0;
}

Wanted SenderWish::Of(const CapturedFrame& frame) {
  // Where the length is still to be measured, it will be that of the longest.
  const bool pending = state_.PacketLengthPending;
  const std::int16_t length = LengthInCells(frame);
  if (!pending && length > state_.PacketLength) {
    ++tooLong_;
    return Wanted::No;
  }
  if (IsMet(frame, pending ? length : state_.PacketLength)) return Wanted::No;
  return sources_.contains(SourceIn(TextOf(frame))) ? Wanted::Rather : Wanted::Most;
}

bool SenderWish::IsMet(const CapturedFrame& frame, std::int16_t expected) {
  if (!seen_.Met(station_.Id(frame, expected))) return false;
  const StructuralIds ids(frame.Bytes, frame.Length);
  if (ids.Why != sv::Fault::None && !sources_.contains(SourceIn(TextOf(frame)))) return false;
  return std::all_of(ids.Ids.begin(), ids.Ids.end(),
                     [this](std::string_view id) { return structural_.contains(id); });
}

void SenderWish::Append(const PacketBytes& frame, const StructuralIds& ids) {
  Keep(SourceIn(frame.Text()), sources_);
  for (const std::string_view id : ids.Ids) Keep(id, structural_);
  if (ids.Why == sv::Fault::None) return;
  lastFault_ = ids.Why;
  Keep(SourceIn(frame.Text()), unreadable_);
}

}  // namespace packetroutines
