#include "platform/hex_text.h"

namespace platform {

namespace {

constexpr std::string_view Digits = "0123456789ABCDEF";
constexpr unsigned Base = 16;

unsigned DigitAt(std::string_view text, std::size_t position) {
  if (position >= text.size()) return 0;
  const std::size_t digit = Digits.find(text[position]);
  return digit == std::string_view::npos ? 0 : static_cast<unsigned>(digit);
}

}  // namespace

std::string HexByteText(std::uint8_t value) {
  return {Digits[value / Base], Digits[value % Base]};
}

std::int16_t HexPairValue(std::string_view text) {
  return static_cast<std::int16_t>(DigitAt(text, 0) * Base + DigitAt(text, 1));
}

}  // namespace platform
