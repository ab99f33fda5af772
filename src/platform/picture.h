#pragma once

#include <cstdint>
#include <vector>

namespace platform {

/// An image as plain pixels, row by row from the upper left corner, each as 0xAARRGGBB.
struct Picture {
  std::int32_t Width = 0;
  std::int32_t Height = 0;
  std::vector<std::uint32_t> Pixels;

  bool Empty() const { return Pixels.empty(); }
  friend bool operator==(const Picture&, const Picture&) = default;
};

}  // namespace platform
