#include "recorder/reading/frame_identity.h"

#include <algorithm>
#include <string_view>

#include "base/failure.h"
#include "base/hex_text.h"

namespace packetroutines {

namespace {

/// The bytes that are looked at, from the first one on.
constexpr std::size_t BytesTaken = 100;
constexpr std::size_t AddressBytes = 6;
/// The tag of the number of ASDUs with its length, and the tag of the station ID.
constexpr std::string_view AsduMark = "8001";
constexpr std::string_view IdMark = "80";
constexpr std::size_t PairDigits = 2;

/// The 1-based position of `mark` at or behind `from`; 0 where it is not.
std::size_t PositionOf(std::string_view text, std::string_view mark, std::size_t from) {
  const std::size_t found = text.find(mark, from - 1);
  return found == std::string_view::npos ? 0 : found + 1;
}

/// The two digits at a 1-based position, as far as they are there.
std::string_view PairAt(std::string_view text, std::size_t position) {
  return text.substr(std::min(position - 1, text.size()), PairDigits);
}

/// The six bytes behind the first `skipped` ones.
std::string Address(std::string_view digits, std::size_t skipped) {
  std::string address;
  for (std::size_t i = 0; i < AddressBytes; ++i) {
    if (i > 0) address += ':';
    address += PairAt(digits, (skipped + i) * PairDigits + 1);
  }
  return address;
}

std::string StationId(std::string_view digits) {
  const std::size_t asdu = PositionOf(digits, AsduMark, 1);
  const std::size_t mark = PositionOf(digits, IdMark, asdu + PairDigits);
  const std::size_t length = mark + PairDigits;
  std::string id;
  for (std::int16_t left = platform::HexPairValue(PairAt(digits, length)); left > 0; --left) {
    const std::string_view pair = PairAt(digits, length + PairDigits * (id.size() + 1));
    if (pair.size() < PairDigits) break;
    id += static_cast<char>(platform::HexPairValue(pair));
  }
  return id;
}

}  // namespace

FrameIdentity ReadFrameIdentity(const PacketBytes& frame) {
  const std::string_view text = frame.Text();
  if (text.size() < BytesTaken) throw platform::Failure(platform::failure::InvalidProcedureCall);
  std::string digits;
  for (const char byte : text.substr(0, BytesTaken)) {
    digits += platform::HexByteText(static_cast<std::uint8_t>(byte));
  }
  return {Address(digits, AddressBytes), Address(digits, 0), StationId(digits)};
}

}  // namespace packetroutines
