#pragma once

#include <QSize>
#include <cmath>
#include <cstdint>

namespace desktop::twips {

/// The program's unit of length: 15 to a pixel of 1/96 inch.
inline constexpr int PerPixel = 15;

inline int Pixels(std::int32_t twips) {
  return static_cast<int>(std::lround(static_cast<double>(twips) / PerPixel));
}
constexpr std::int32_t Of(int pixels) {
  return pixels * PerPixel;
}
/// Points of 1/72 inch in pixels.
inline double PointPixels(double points) {
  return points * 96 / 72;
}

}  // namespace desktop::twips
