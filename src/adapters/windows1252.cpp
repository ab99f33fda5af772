#include "adapters/windows1252.h"

#include <iconv.h>

#include <cstddef>

#include "base/failure.h"

namespace adapters {

namespace {

constexpr char Substitute = '?';

/// A conversion descriptor of the library that is closed with its scope.
class Conversion {
 public:
  Conversion() : descriptor_(iconv_open("UTF-8", "WINDOWS-1252")) {
    if (!IsOpen()) {
      throw platform::Failure(platform::failure::DeviceIo,
                              "The code page Windows-1252 is not available. Please install the "
                              "character conversions of the system's C library.");
    }
  }
  Conversion(const Conversion&) = delete;
  Conversion& operator=(const Conversion&) = delete;
  ~Conversion() { iconv_close(descriptor_); }

  /// The UTF-8 text of one byte; empty where the code page has no character for it.
  std::string Character(char byte) const {
    std::array<char, 8> text{};
    char* in = &byte;
    char* out = text.data();
    std::size_t inLeft = 1;
    std::size_t outLeft = text.size();
    if (iconv(descriptor_, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1)) {
      iconv(descriptor_, nullptr, nullptr, nullptr, nullptr);
      return {};
    }
    return {text.data(), text.size() - outLeft};
  }

 private:
  bool IsOpen() const {
    // The library's own mark of a descriptor that could not be opened.
    return descriptor_ != reinterpret_cast<iconv_t>(static_cast<std::intptr_t>(-1));
  }

  iconv_t descriptor_;
};

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

Windows1252::Windows1252() {
  const Conversion conversion;
  for (std::size_t byte = 0; byte < characters_.size(); ++byte) {
    std::string& character = characters_[byte];
    character = conversion.Character(static_cast<char>(byte));
    if (character.empty()) {
      // The bytes without a character all lie in the range whose UTF-8 form begins with this byte.
      character = {'\xC2', static_cast<char>(byte)};
    }
    bytes_.emplace(character, static_cast<char>(byte));
  }
}

std::string Windows1252::FromUtf8(std::string_view text) const {
  std::string bytes;
  bytes.reserve(text.size());
  std::string character;
  while (!text.empty()) {
    const std::size_t length = SequenceLength(text);
    if (At(text, 0) < 0x80) {
      bytes += text.front();
    } else {
      // A broken or unknown sequence is no character of the page, so one look decides both.
      character.assign(text.substr(0, length));
      const auto found = bytes_.find(character);
      bytes += found == bytes_.end() ? Substitute : found->second;
    }
    text.remove_prefix(length);
  }
  return bytes;
}

std::string Windows1252::ToUtf8(std::string_view bytes) const {
  std::string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) text += characters_[static_cast<std::uint8_t>(byte)];
  return text;
}

}  // namespace adapters
