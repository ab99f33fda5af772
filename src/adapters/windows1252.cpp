#include "adapters/windows1252.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace adapters {

namespace {

constexpr char Substitute = '?';

/// The characters from 0x80 on, before those of Latin-1 begin; a byte without one stands for
/// itself.
constexpr std::size_t FirstOwn = 0x80;
constexpr std::array<std::uint32_t, 32> OwnCharacters = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

/// A character in UTF-8.
struct Character {
  std::array<char, 3> Bytes{};
  std::size_t Length = 0;

  constexpr std::string_view Text() const { return {Bytes.data(), Length}; }
};

constexpr Character InUtf8(std::uint32_t code) {
  const auto tail = [code](int shift) { return static_cast<char>(0x80 | (code >> shift & 0x3F)); };
  if (code < 0x80) return {{static_cast<char>(code)}, 1};
  if (code < 0x800) return {{static_cast<char>(0xC0 | code >> 6), tail(0)}, 2};
  return {{static_cast<char>(0xE0 | code >> 12), tail(6), tail(0)}, 3};
}

constexpr std::array<Character, 256> Characters = [] {
  std::array<Character, 256> characters;
  for (std::uint32_t byte = 0; byte < characters.size(); ++byte) {
    const std::size_t own = byte - FirstOwn;
    characters[byte] =
        InUtf8(byte >= FirstOwn && own < OwnCharacters.size() ? OwnCharacters[own] : byte);
  }
  return characters;
}();

/// The byte of a character outside of ASCII, which may be none of the page or no character at all.
char ByteOf(std::string_view character) {
  const auto* const found =
      std::find_if(Characters.begin() + FirstOwn, Characters.end(),
                   [character](const Character& of) { return of.Text() == character; });
  return found == Characters.end() ? Substitute : static_cast<char>(found - Characters.begin());
}

std::uint8_t At(std::string_view text, std::size_t index) {
  return static_cast<std::uint8_t>(text[index]);
}

/// Bytes that the character with this first byte has; 0 for a byte that starts none.
std::size_t CharacterLength(std::uint8_t first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first <= 0xDF) return 2;
  if (first >= 0xE0 && first <= 0xEF) return 3;
  if (first >= 0xF0 && first <= 0xF4) return 4;
  return 0;
}

/// Bytes at the front of the text that belong together: a character, or the beginning of one that
/// is broken off; at least one.
std::size_t SequenceLength(std::string_view text) {
  const std::size_t wanted = CharacterLength(At(text, 0));
  std::size_t length = 1;
  while (length < wanted && length < text.size() && (At(text, length) & 0xC0) == 0x80) ++length;
  return length;
}

}  // namespace

std::string Windows1252::FromUtf8(std::string_view text) const {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = SequenceLength(text);
    // A broken or unknown sequence is no character of the page, so one look decides both.
    bytes += At(text, 0) < 0x80 ? text.front() : ByteOf(text.substr(0, length));
    text.remove_prefix(length);
  }
  return bytes;
}

std::string Windows1252::ToUtf8(std::string_view bytes) const {
  std::string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) text += Characters[static_cast<std::uint8_t>(byte)].Text();
  return text;
}

}  // namespace adapters
