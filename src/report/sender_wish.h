#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "capture/acquisition_state.h"
#include "capture/packet_bytes.h"
#include "platform/services/capture_object.h"
#include "platform/services/code_page.h"
#include "report/frame_station.h"
#include "report/seen_streams.h"

namespace packetroutines {

/// What the stream finder would like to meet, since it takes one frame a start: a frame whose ID
/// was not met in its session. Of these it likes best those of a source address that was not met
/// either, so that a sender whose "ID" is another one in every frame keeps nobody from the list.
class SenderWish {
 public:
  /// `seen` are the IDs met in the session.
  SenderWish(const RunFields& state, const SeenStreams& seen, const platform::CodePage& code)
      : state_(state), seen_(seen), station_(code) {}

  /// A session begins.
  void Clear();
  platform::Wanted Of(const platform::CapturedFrame& frame);
  /// The frame was met.
  void Append(const PacketBytes& frame);
  /// Frames that were longer than expected, whose senders cannot be met.
  std::uint64_t TooLong() const { return tooLong_; }

 private:
  const RunFields& state_;
  const SeenStreams& seen_;
  FrameStation station_;
  std::set<std::string, std::less<>> sources_;
  std::uint64_t tooLong_ = 0;
};

}  // namespace packetroutines
