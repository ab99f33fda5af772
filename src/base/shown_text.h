#pragma once

#include <string>
#include <string_view>

namespace platform {

// What comes from the bus is kept as it came; it may hold characters that no font shows: the
// control characters, and the soft hyphen. Whoever shows or prints such a text takes one of these.

/// They are written out, "\0", "\n" or "\x1F", so that they are seen and the text stays on one
/// line. A backslash stays as it is, since paths are full of them.
std::string Escaped(std::string_view text);
/// Each of them is a blank, so that columns of one pitch stay columns.
std::string Blanked(std::string_view text);

}  // namespace platform
