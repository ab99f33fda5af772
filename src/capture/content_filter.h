#pragma once

#include <cstdint>
#include <optional>
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

  /// 1-based position of `content` (UTF-8) in the frame's text, 0 when absent, 1 for an empty
  /// content.
  std::int32_t Position(std::string_view frameText, const std::string& content) {
    if (content != content_) {
      content_ = content;
      needle_ = code_.FromUtf8(content);
      if (code_.ToUtf8(*needle_) != content) needle_.reset();
    }
    if (!needle_) return 0;
    const auto at = frameText.find(*needle_);
    return at == std::string_view::npos ? 0 : static_cast<std::int32_t>(at) + 1;
  }

 private:
  const platform::CodePage& code_;
  std::string content_;
  /// Absent where no frame can hold the text.
  std::optional<std::string> needle_ = "";
};

}  // namespace packetroutines
