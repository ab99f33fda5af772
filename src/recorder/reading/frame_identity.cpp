#include "recorder/reading/frame_identity.h"

#include "base/failure.h"
#include "capture/frame_digits.h"

namespace packetroutines {

namespace {

/// The bytes that are looked at, from the first one on.
constexpr std::int32_t BytesTaken = 100;
constexpr std::size_t AddressBytes = 6;

}  // namespace

FrameIdentity ReadFrameIdentity(const PacketBytes& frame) {
  if (frame.FrameLength() < BytesTaken) {
    throw platform::Failure(platform::failure::InvalidProcedureCall);
  }
  FrameDigits digits;
  digits.Take({frame.Run(1, BytesTaken), static_cast<std::size_t>(BytesTaken)});
  return {digits.Pairs(AddressBytes + 1, AddressBytes), digits.Pairs(1, AddressBytes),
          digits.WholeStationId(digits.StationTag(digits.AsduCount()))};
}

}  // namespace packetroutines
