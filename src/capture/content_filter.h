#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/services/code_page.h"

namespace packetroutines {

/// Searches the text that marks a frame of a stream, such as its station ID. The text is converted
/// to the code page of the frames only when it changes. A text with a character that the code page
/// does not have stands in no frame.
class ContentFilter {
 public:
  explicit ContentFilter(const platform::CodePage& code) : code_(code) {}

  /// True where `content` (UTF-8) stands in the frame's text; an empty one stands in every text.
  bool Holds(std::string_view frameText, const std::string& content) {
    if (content.size() != content_.size() || !SameBytes(content.data(), content_)) Take(content);
    // The frames of a sender have it all at one place, and another sender has it nowhere.
    return StandsAt(frameText, place_) || Find(frameText);
  }
  /// True where it stands behind the first byte. A text that begins with it does not count.
  bool HoldsBehindStart(std::string_view frameText, const std::string& content) {
    return Holds(frameText, content) && !StandsAt(frameText, 0);
  }

 private:
  void Take(const std::string& content);
  bool Find(std::string_view frameText);

  bool StandsAt(std::string_view frameText, std::size_t place) const {
    return place <= frameText.size() && needle_.size() <= frameText.size() - place &&
           SameBytes(frameText.data() + place, needle_);
  }
  /// The bytes are those of the text. Names are short, and each frame compares some of them: a call
  /// of the library's comparison would take longer than the comparison.
  static bool SameBytes(const char* bytes, const std::string& text) {
    const std::size_t size = text.size();
    if (size < Word) return std::equal(text.begin(), text.end(), bytes);
    for (std::size_t at = 0; at + Word < size; at += Word) {
      if (WordAt(bytes + at) != WordAt(text.data() + at)) return false;
    }
    return WordAt(bytes + size - Word) == WordAt(text.data() + size - Word);
  }
  static std::uint64_t WordAt(const char* bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, Word);
    return word;
  }

  static constexpr std::size_t Word = sizeof(std::uint64_t);
  static constexpr std::size_t Nowhere = std::string::npos;

  const platform::CodePage& code_;
  std::string content_;
  std::string needle_;
  /// Where the text stood in the latest frame that held it; `Nowhere` for one that no frame can
  /// hold.
  std::size_t place_ = 0;
};

}  // namespace packetroutines
