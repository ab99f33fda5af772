#pragma once

#include <cstdint>
#include <ostream>
#include <string>

#include "platform/controls/property.h"

namespace platform {

/// A colour as red, green and blue, 0 to 255 each.
struct Rgb {
  std::uint8_t Red = 0;
  std::uint8_t Green = 0;
  std::uint8_t Blue = 0;
  friend bool operator==(const Rgb&, const Rgb&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Rgb& colour) {
    return out << int{colour.Red} << ", " << int{colour.Green} << ", " << int{colour.Blue};
  }
};

/// The numbers of the mouse buttons.
namespace mouse_button {
inline constexpr std::int16_t Left = 1;
inline constexpr std::int16_t Right = 2;
inline constexpr std::int16_t Middle = 4;
}  // namespace mouse_button

/// What every control has: whether it shows and reacts, its tool tip, and its place in twips
/// (15 to a pixel) within its view.
class Control {
 public:
  Property<bool> Visible{true};
  Property<bool> Enabled{true};
  Property<std::string> ToolTipText;
  Property<std::int32_t> Left;
  Property<std::int32_t> Top;
  Property<std::int32_t> Width;
  Property<std::int32_t> Height;

  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

 protected:
  ~Control() = default;
};

}  // namespace platform
