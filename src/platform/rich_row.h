#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/controls/label.h"

namespace platform {

/// Pitch of the text rows of the information page and of the report, in twips.
inline constexpr std::int32_t RowPitch = 300;

/// Where a row of text stands, in twips.
struct RowPlace {
  std::int32_t Left = 0;
  std::int32_t Top = 0;
  std::int32_t Width = 0;
};

/// False for an empty rich line and for one with nothing behind its last "|".
bool TakesPlace(std::string_view line);
/// Gives a row its place, and the font and the text of its rich line. A text of one blank shows
/// nothing.
void ShowRow(Label& row, std::string_view line, const RowPlace& place);
/// Shows each line in the row of its number, one below the other from the first place on. A line
/// that takes no place leaves its row alone.
void ShowRows(std::span<Label> rows, std::span<const std::string_view> lines, RowPlace place);

}  // namespace platform
