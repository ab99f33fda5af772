#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace platform {

/// A byte as two hexadecimal digits in upper case.
std::string HexByteText(std::uint8_t value);

/// A word as four digits behind "0x".
std::string HexWordText(std::uint16_t word);
/// Bytes as pairs of digits with a colon between, as addresses are written.
std::string HexAddressText(std::span<const std::uint8_t> address);

/// Two digits for one byte after the other, in the place of what the text held; it keeps its
/// memory.
void WriteHexText(std::span<const std::uint8_t> bytes, std::string& text);

/// The number that the first two characters spell: the digits "0" to "9" and "A" to "F", the first
/// one worth sixteen times the second. Any other character, a lower case letter too, and a
/// character that is missing counts nothing.
std::int16_t HexPairValue(std::string_view text);

}  // namespace platform
