#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "platform/services/code_page.h"

namespace packetroutines {

/// Who sends a frame and how, as its structure tells, on one line.
std::string IdentityWords(std::span<const std::uint8_t> frame, const platform::CodePage& code);

}  // namespace packetroutines
