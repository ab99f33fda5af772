#pragma once

#include <cstdint>
#include <string>

#include "platform/services/code_page.h"

namespace support {

/// A character in UTF-8.
inline std::string Utf8(std::uint32_t point) {
  const auto tail = [point](unsigned shift) {
    return static_cast<char>(0x80U | ((point >> shift) & 0x3FU));
  };
  if (point < 0x80) return {static_cast<char>(point)};
  if (point < 0x800) return {static_cast<char>(0xC0U | point >> 6U), tail(0)};
  if (point < 0x10000) return {static_cast<char>(0xE0U | point >> 12U), tail(6), tail(0)};
  return {static_cast<char>(0xF0U | point >> 18U), tail(12), tail(6), tail(0)};
}

/// Reads a text of the log as its reader would: each number between "<U+" and ">" is a character.
inline std::string ReadLogText(const platform::CodePage& code, const std::string& bytes) {
  std::string text = code.ToUtf8(bytes);
  for (std::size_t at = 0; (at = text.find("<U+", at)) != std::string::npos;) {
    const std::size_t end = text.find('>', at);
    const std::string character = Utf8(
        static_cast<std::uint32_t>(std::stoul(text.substr(at + 3, end - at - 3), nullptr, 16)));
    text.replace(at, end + 1 - at, character);
    at += character.size();
  }
  return text;
}

}  // namespace support
