#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/controls/grid.h"

namespace support {

/// What a column of the table shows for the eight channels, below its head.
inline std::vector<std::string> ChannelTexts(const platform::Grid<9, 3>& grid, std::size_t column) {
  std::vector<std::string> texts;
  for (std::size_t row = 1; row <= 8; ++row) texts.push_back(grid.Cell[row][column]);
  return texts;
}

}  // namespace support
