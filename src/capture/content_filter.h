#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/code_page.h"

namespace packetroutines {

/// Searches the text that marks a frame of a stream, such as its station ID. The text is converted
/// to the code page of the frames only when it changes.
class ContentFilter {
 public:
  explicit ContentFilter(const platform::CodePage& code) : code_(code) {}

  /// 1-based position of `content` (UTF-8) in the frame's text, 0 when absent, 1 for an empty
  /// content.
  std::int32_t Position(std::string_view frameText, const std::string& content) {
    if (content != content_) {
      content_ = content;
      needle_ = code_.FromUtf8(content);
    }
    const auto at = frameText.find(needle_);
    return at == std::string_view::npos ? 0 : static_cast<std::int32_t>(at) + 1;
  }

 private:
  const platform::CodePage& code_;
  std::string content_;
  std::string needle_;
};

}  // namespace packetroutines
