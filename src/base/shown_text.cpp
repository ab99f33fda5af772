#include "base/shown_text.h"

#include <cstddef>
#include <cstdint>

#include "base/hex_text.h"

namespace platform {

namespace {

constexpr std::uint8_t Delete = 0x7F;
/// The first byte of the UTF-8 form of U+0080 to U+00BF, whose second is the character's number.
constexpr char Latin = '\xC2';
constexpr std::uint8_t LastUpperControl = 0x9F;
constexpr std::uint8_t SoftHyphen = 0xAD;

/// A character without a shape at the front of a text, and the bytes that it takes; none where the
/// text begins with another one.
struct Shapeless {
  std::size_t Length = 0;
  std::uint8_t Number = 0;
};

Shapeless FrontOf(std::string_view text) {
  const auto first = static_cast<std::uint8_t>(text[0]);
  if (first < ' ' || first == Delete) return {1, first};
  if (text[0] != Latin || text.size() < 2) return {};
  const auto number = static_cast<std::uint8_t>(text[1]);
  if (number <= LastUpperControl || number == SoftHyphen) return {2, number};
  return {};
}

template <typename Show>
std::string Shown(std::string_view text, Show show) {
  std::string shown;
  while (!text.empty()) {
    const Shapeless front = FrontOf(text);
    if (front.Length == 0) {
      shown += text[0];
      text.remove_prefix(1);
    } else {
      shown += show(front.Number);
      text.remove_prefix(front.Length);
    }
  }
  return shown;
}

}  // namespace

std::string Escaped(std::string_view text) {
  return Shown(text, [](std::uint8_t number) -> std::string {
    switch (number) {
      case '\0':
        return "\\0";
      case '\t':
        return "\\t";
      case '\n':
        return "\\n";
      case '\r':
        return "\\r";
      default:
        return "\\x" + HexByteText(number);
    }
  });
}

std::string Blanked(std::string_view text) {
  return Shown(text, [](std::uint8_t) { return ' '; });
}

}  // namespace platform
