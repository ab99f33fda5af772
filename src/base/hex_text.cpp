#include "base/hex_text.h"

namespace platform {

namespace {

constexpr std::string_view Digits = "0123456789ABCDEF";
constexpr unsigned Base = 16;

unsigned DigitAt(std::string_view text, std::size_t position) {
  if (position >= text.size()) return 0;
  const char digit = text[position];
  if (digit >= '0' && digit <= '9') return static_cast<unsigned>(digit - '0');
  return digit >= 'A' && digit <= 'F' ? static_cast<unsigned>(digit - 'A') + 10 : 0;
}

}  // namespace

std::string HexByteText(std::uint8_t value) {
  return {Digits[value / Base], Digits[value % Base]};
}

std::string HexWordText(std::uint16_t word) {
  return "0x" + HexByteText(static_cast<std::uint8_t>(word >> 8U)) +
         HexByteText(static_cast<std::uint8_t>(word & 0xFFU));
}

std::string HexAddressText(std::span<const std::uint8_t> address) {
  std::string text;
  for (const std::uint8_t byte : address) {
    if (!text.empty()) text += ':';
    text += HexByteText(byte);
  }
  return text;
}

void WriteHexText(std::span<const std::uint8_t> bytes, std::string& text) {
  text.resize(2 * bytes.size());
  char* place = text.data();
  for (const std::uint8_t value : bytes) {
    *place++ = Digits[value / Base];
    *place++ = Digits[value % Base];
  }
}

std::int16_t HexPairValue(std::string_view text) {
  return static_cast<std::int16_t>(DigitAt(text, 0) * Base + DigitAt(text, 1));
}

}  // namespace platform
