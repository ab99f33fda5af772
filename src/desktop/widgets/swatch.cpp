#include "desktop/widgets/swatch.h"

#include <optional>

#include "desktop/look/casing.h"
#include "desktop/look/scale.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr int SwatchWidth = 22;
constexpr int SwatchHeight = 4;
constexpr int SwatchGap = 8;

}  // namespace

int SwatchRoom() {
  return look::Scaled(SwatchWidth) + look::Scaled(SwatchGap);
}

QRect PaintSwatch(QPainter& painter, const QRect& row, const QColor& colour, const QColor& ground) {
  const int thick = look::Scaled(SwatchHeight);
  const QRect swatch(row.left(), row.center().y() - thick / 2, look::Scaled(SwatchWidth), thick);
  const std::optional<QColor> casing = look::CasingOf(colour, ground);
  if (casing) painter.fillRect(swatch.adjusted(-1, -1, 1, 1), *casing);
  painter.fillRect(swatch, colour);
  return row.adjusted(SwatchRoom(), 0, 0, 0);
}

}  // namespace desktop
