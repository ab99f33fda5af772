#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The fields of a rich line, "font name|font size|style|text". The text may hold further "|". A
/// line with fewer than three "|" is a programming error and raises failure 5.
std::string RichFont(std::string_view line);
/// Points.
float RichSize(std::string_view line);
/// The styles "fett" and "fettunderline".
bool RichBold(std::string_view line);
/// The styles "normalunderline" and "fettunderline".
bool RichUnderline(std::string_view line);
std::string RichText(std::string_view line);

}  // namespace platform
