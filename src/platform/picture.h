#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace platform {

/// An image as lines and texts, which are sharp in any size. Only who draws it knows its kind.
class Drawing {
 public:
  virtual ~Drawing() = default;
};

/// An image as plain pixels, row by row from the upper left corner, each as 0xAARRGGBB, or as a
/// drawing of the same width and height.
struct Picture {
  std::int32_t Width = 0;
  std::int32_t Height = 0;
  std::vector<std::uint32_t> Pixels;
  std::shared_ptr<const platform::Drawing> Drawing = nullptr;

  bool Empty() const { return Pixels.empty() && !Drawing; }
  friend bool operator==(const Picture&, const Picture&) = default;
};

}  // namespace platform
