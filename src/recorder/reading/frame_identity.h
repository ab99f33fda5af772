#pragma once

#include <string>

#include "capture/packet_bytes.h"

namespace packetroutines {

/// Who sent a frame and to whom, in the system's code page.
struct FrameIdentity {
  /// MAC addresses: six pairs of digits with ":" between them.
  std::string Sender;
  std::string Receiver;
  /// The station ID.
  std::string Id;
};

/// Reads the frame that came last. It is looked at as a text of hexadecimal digits, in which a mark
/// may also be found across two bytes; an ID that goes beyond the bytes looked at ends there.
/// Failure 5 where the frame has less than a hundred bytes.
FrameIdentity ReadFrameIdentity(const PacketBytes& frame);

}  // namespace packetroutines
