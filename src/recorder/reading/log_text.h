#pragma once

#include <string>
#include <string_view>

#include "base/local_time.h"
#include "platform/services/calendar.h"
#include "platform/services/code_page.h"

namespace packetroutines {

/// A text of the log in the system's code page, from which it can be read back whole. A character
/// that the code page lacks stands as its number, as in "<U+6D4B>"; and so that nothing else looks
/// like that, a "<" that "U+" follows stands as "<U+003C>".
std::string LogText(const platform::CodePage& code, std::string_view text);

/// A moment as the system's settings write one, or, where the code page would lose a part of that,
/// in plain digits: "2024-03-09 14:05:07".
std::string LogDate(const platform::CodePage& code, const platform::Calendar& calendar,
                    const platform::LocalTime& moment);

}  // namespace packetroutines
