#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The system's single-byte code page, Windows-1252; texts inside the program are UTF-8.
class CodePage {
 public:
  virtual ~CodePage() = default;
  /// One byte a character; a character outside the code page becomes "?".
  virtual std::string FromUtf8(std::string_view text) const = 0;
  virtual std::string ToUtf8(std::string_view bytes) const = 0;
};

}  // namespace platform
