#pragma once

#include <span>
#include <string>
#include <string_view>

namespace history {

/// The whole text of the revision history.
std::string HistoryText();
/// The lines that are not empty, each followed by a line break.
std::string HistoryText(std::span<const std::string_view> lines);

}  // namespace history
