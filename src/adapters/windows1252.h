#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/services/code_page.h"

namespace adapters {

/// The code page Windows-1252. Its five bytes without a character stand for the control characters
/// of the same number, so that every byte survives the way to text and back.
class Windows1252 : public platform::CodePage {
 public:
  Windows1252();

  std::string FromUtf8(std::string_view text) const override;
  std::string ToUtf8(std::string_view bytes) const override;

 private:
  /// Asked of the conversion library once, so that a conversion looks up and cannot fail.
  std::array<std::string, 256> characters_;
  std::unordered_map<std::string, char> bytes_;
};

}  // namespace adapters
