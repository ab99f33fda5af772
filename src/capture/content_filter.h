#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/services/capture_object.h"
#include "platform/services/code_page.h"

namespace packetroutines {

/// What was captured of a frame, as text in the system's code page.
inline std::string_view TextOf(const platform::CapturedFrame& frame) {
  return {reinterpret_cast<const char*>(frame.Bytes.data()), frame.Bytes.size()};
}

/// Searches the text that marks a frame of a stream, such as its station ID. The text is converted
/// to the code page of the frames only when it changes. A text with a character that the code page
/// does not have stands in no frame.
class ContentFilter {
 public:
  explicit ContentFilter(const platform::CodePage& code) : code_(code) {}

  /// Searches this text (UTF-8) from now on; an empty one stands in every text.
  void Take(const std::string& content);
  /// True where it stands in the frame's text.
  bool Holds(std::string_view frameText) {
    return StandsAt(frameText, place_) || Find(frameText) != Nowhere;
  }
  /// True where it stands behind the first byte. A text that begins with it does not count.
  bool HoldsBehindStart(std::string_view frameText) {
    // The frames of a sender have it all at one place, and another sender has it nowhere.
    if (place_ > 0 && StandsAt(frameText, place_)) return !StandsAt(frameText, 0);
    const std::size_t found = Find(frameText);
    return found != 0 && found != Nowhere;
  }

 private:
  /// Where the text stands first; Nowhere where it does not. Most frames of another sender are
  /// told by a letter that they do not have.
  std::size_t Find(std::string_view frameText) {
    if (needle_.empty()) return impossible_ ? Nowhere : 0;
    if (frameText.size() < needle_.size()) return Nowhere;
    const void* const letter =
        std::memchr(frameText.data(), needle_.front(), frameText.size() - needle_.size() + 1);
    return letter == nullptr
               ? Nowhere
               : FindFrom(frameText, static_cast<const char*>(letter) - frameText.data());
  }
  std::size_t FindFrom(std::string_view frameText, std::size_t place);

  bool StandsAt(std::string_view frameText, std::size_t place) const {
    return !impossible_ && place + needle_.size() <= frameText.size() &&
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
  std::string needle_;
  /// No frame can hold the text.
  bool impossible_ = false;
  /// Where the text stood in the latest frame that held it.
  std::size_t place_ = 0;
};

}  // namespace packetroutines
