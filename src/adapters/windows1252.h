#pragma once

#include <string>
#include <string_view>

#include "platform/services/code_page.h"

namespace adapters {

/// The code page Windows-1252. Its five bytes without a character stand for the control characters
/// of the same number, so that every byte survives the way to text and back.
class Windows1252 : public platform::CodePage {
 public:
  std::string FromUtf8(std::string_view text) const override;
  std::string ToUtf8(std::string_view bytes) const override;
};

}  // namespace adapters
