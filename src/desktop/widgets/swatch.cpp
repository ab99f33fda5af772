#include "desktop/widgets/swatch.h"

#include "desktop/look/casing.h"
#include "desktop/look/scale.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr int SwatchWidth = 22;
constexpr int SwatchHeight = 4;
constexpr int SwatchGap = 8;
constexpr int SwatchEdge = 1;

}  // namespace

int SwatchRoom() {
  return look::Scaled(SwatchWidth) + look::Scaled(SwatchGap);
}

QRect PaintSwatch(QPainter& painter, const QRect& row, const QColor& colour, const QColor& ground) {
  const int thick = look::Scaled(SwatchHeight);
  const QRect swatch(row.left(), row.top() + (row.height() - thick) / 2, look::Scaled(SwatchWidth),
                     thick);
  // All of one size: an edge is a part of its swatch, as it is one of its curve.
  painter.fillRect(swatch, look::CasingOf(colour, ground).value_or(colour));
  const int edge = look::Scaled(SwatchEdge);
  painter.fillRect(swatch.adjusted(edge, edge, -edge, -edge), colour);
  return row.adjusted(SwatchRoom(), 0, 0, 0);
}

}  // namespace desktop
