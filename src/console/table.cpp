#include "console/table.h"

#include <algorithm>

namespace console {

namespace {

constexpr std::size_t Between = 2;

/// Characters of a UTF-8 text, as far as each takes one place.
std::size_t Places(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
}

}  // namespace

std::size_t Table::WidthOf(std::size_t column) const {
  std::size_t width = Places(columns_[column].Heading);
  for (const auto& row : rows_) width = std::max(width, Places(row[column]));
  return width;
}

void Table::WriteRow(std::ostream& out, const std::vector<std::string>& row,
                     const std::vector<std::size_t>& widths) const {
  std::string line;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const std::string room(widths[i] - Places(row[i]), ' ');
    line += columns_[i].Stands == Side::Right ? room + row[i] : row[i] + room;
    line.append(Between, ' ');
  }
  line.erase(line.find_last_not_of(' ') + 1);
  out << line << '\n';
}

void Table::Write(std::ostream& out) const {
  std::vector<std::string> headings;
  std::vector<std::size_t> widths;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    headings.push_back(columns_[i].Heading);
    widths.push_back(WidthOf(i));
  }
  WriteRow(out, headings, widths);
  for (const auto& row : rows_) WriteRow(out, row, widths);
}

}  // namespace console
