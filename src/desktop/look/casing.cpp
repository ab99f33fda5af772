#include "desktop/look/casing.h"

#include <algorithm>
#include <cmath>

namespace desktop::look {

namespace {

// Black, since half of a pixel is all that an edge has in the smallest window.
const QColor DarkEdge(Qt::black);
const QColor LightEdge(Qt::white);

/// Relative luminance in the sRGB colour space.
double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

}  // namespace

double Contrast(const QColor& one, const QColor& other) {
  constexpr double Flare = 0.05;
  const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
  return (light + Flare) / (dark + Flare);
}

std::optional<QColor> CasingOf(const QColor& colour, const QColor& ground) {
  if (Contrast(colour, ground) >= LeastContrast) return std::nullopt;
  return Contrast(DarkEdge, colour) > Contrast(LightEdge, colour) ? DarkEdge : LightEdge;
}

}  // namespace desktop::look
