#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "capture/acquisition_state.h"
#include "capture/packet_bytes.h"
#include "platform/services/capture_object.h"
#include "platform/services/code_page.h"
#include "report/frame_station.h"
#include "report/seen_streams.h"
#include "report/structural_ids.h"

namespace packetroutines {

/// The source address of a frame, as far as it is there.
std::string_view SourceIn(std::string_view frame);

/// What the stream finder would like to meet, since it takes one frame a start: a frame of which an
/// ID was not met in its session, be it the one that is searched or one by the structure, since a
/// search may find the same in the frames of many senders. Where there is no structure, each source
/// address counts as an ID. Of these frames it likes best those of a source address that was not
/// met either, so that a sender whose "ID" is another one in every frame keeps nobody from the
/// list.
class SenderWish {
 public:
  /// `seen` are the IDs met in the session.
  SenderWish(const RunFields& state, const SeenStreams& seen, const platform::CodePage& code)
      : state_(state), seen_(seen), station_(code) {}

  /// A session begins.
  void Clear();
  platform::Wanted Of(const platform::CapturedFrame& frame);
  /// The frame was met.
  void Append(const PacketBytes& frame, const StructuralIds& ids);
  /// Frames that were longer than expected, whose senders cannot be met.
  std::uint64_t TooLong() const { return tooLong_; }
  /// How many source addresses frames without a structure came from, and why the last one has none.
  std::size_t Unreadable() const { return unreadable_.size(); }
  sv::Fault LastFault() const { return lastFault_; }

 private:
  bool IsMet(const platform::CapturedFrame& frame, std::int16_t expected);

  const RunFields& state_;
  const SeenStreams& seen_;
  FrameStation station_;
  std::set<std::string, std::less<>> sources_;
  /// The IDs by the structure, in octets.
  std::set<std::string, std::less<>> structural_;
  std::set<std::string, std::less<>> unreadable_;
  sv::Fault lastFault_ = sv::Fault::None;
  std::uint64_t tooLong_ = 0;
};

}  // namespace packetroutines
