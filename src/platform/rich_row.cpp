#include "platform/rich_row.h"

#include <cstddef>

#include "platform/rich_line.h"

namespace platform {

bool TakesPlace(std::string_view line) {
  return !line.empty() && !line.ends_with('|');
}

void ShowRow(Label& row, std::string_view line, const RowPlace& place) {
  row.Left = place.Left;
  row.Top = place.Top;
  row.Width = place.Width;
  row.FontName = RichFont(line);
  row.FontSize = RichSize(line);
  row.FontBold = RichBold(line);
  row.FontUnderline = RichUnderline(line);
  row.Caption = RichText(line);
  row.Visible = row.Caption.Get() != " ";
}

void ShowRows(std::span<Label> rows, std::span<const std::string_view> lines, RowPlace place) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!TakesPlace(lines[i])) continue;
    ShowRow(rows[i], lines[i], place);
    place.Top += RowPitch;
  }
}

}  // namespace platform
