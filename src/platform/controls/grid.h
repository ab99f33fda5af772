#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/controls/control.h"

namespace platform {

/// A table of texts; row 0 and column 0 are its fixed head.
template <std::size_t Rows, std::size_t Columns>
class Grid : public Control {
 public:
  std::array<std::array<Property<std::string>, Columns>, Rows> Cell;
  /// Widths of the columns in twips.
  std::array<Property<std::int32_t>, Columns> ColumnWidth;
};

}  // namespace platform
