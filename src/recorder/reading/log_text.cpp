#include "recorder/reading/log_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "base/hex_text.h"

namespace packetroutines {

namespace {

constexpr std::string_view EscapeMark = "<U+";
constexpr char EscapeEnd = '>';

bool IsContinued(char byte) {
  return (static_cast<std::uint8_t>(byte) & 0xC0U) == 0x80;
}

/// The first character of a text in UTF-8.
std::string_view FirstOf(std::string_view text) {
  constexpr std::size_t Longest = 4;
  std::size_t length = 1;
  while (length < std::min(Longest, text.size()) && IsContinued(text[length])) ++length;
  return text.substr(0, length);
}

/// The number of a character: its first byte holds the fewer bits of it the more bytes follow.
std::uint32_t CodePoint(std::string_view character) {
  const auto first = static_cast<std::uint8_t>(character.front());
  std::uint32_t point = first < 0x80 ? first : first & (0x7FU >> character.size());
  for (const char byte : character.substr(1)) {
    point = point << 6U | (static_cast<std::uint8_t>(byte) & 0x3FU);
  }
  return point;
}

/// At least four digits, in whole bytes.
std::string Escaped(std::uint32_t point) {
  std::string digits;
  for (const unsigned shift : {16U, 8U, 0U}) {
    const auto byte = static_cast<std::uint8_t>(point >> shift);
    if (shift < 16 || byte != 0) digits += platform::HexByteText(byte);
  }
  return std::string(EscapeMark) + digits + EscapeEnd;
}

bool Survives(const platform::CodePage& code, std::string_view text) {
  return code.ToUtf8(code.FromUtf8(text)) == text;
}

}  // namespace

std::string LogText(const platform::CodePage& code, std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    const std::string_view character = FirstOf(text);
    const bool plain = Survives(code, character) && !text.starts_with(EscapeMark);
    bytes += plain ? code.FromUtf8(character) : Escaped(CodePoint(character));
    text.remove_prefix(character.size());
  }
  return bytes;
}

std::string LogDate(const platform::CodePage& code, const platform::Calendar& calendar,
                    const platform::LocalTime& moment) {
  const std::string text = calendar.GeneralText(moment);
  return Survives(code, text) ? text : platform::NumericText(moment);
}

}  // namespace packetroutines
