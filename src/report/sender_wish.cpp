#include "report/sender_wish.h"

#include <string_view>

namespace packetroutines {

using platform::CapturedFrame;
using platform::Wanted;

namespace {

/// Where the source address stands in a frame, from 0.
constexpr std::size_t SourceAt = 6;
constexpr std::size_t AddressBytes = 6;
/// More addresses than a bus has senders; beyond them none is kept apart.
constexpr std::size_t MostSources = 4096;

std::string_view SourceIn(std::string_view frame) {
  return frame.size() < SourceAt ? std::string_view() : frame.substr(SourceAt, AddressBytes);
}

}  // namespace

void SenderWish::Clear() {
  sources_.clear();
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
  if (seen_.Met(station_.Id(frame, pending ? length : state_.PacketLength))) return Wanted::No;
  return sources_.contains(SourceIn(TextOf(frame))) ? Wanted::Rather : Wanted::Most;
}

void SenderWish::Append(const PacketBytes& frame) {
  if (sources_.size() < MostSources) sources_.emplace(SourceIn(frame.Text()));
}

}  // namespace packetroutines
