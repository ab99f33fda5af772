#pragma once

#include <QColor>
#include <QPainter>

namespace desktop {

/// Paints the swatch of a curve, as a graph draws the curve, at the left end of a row on `ground`.
/// The room that is left for the curve's name.
QRect PaintSwatch(QPainter& painter, const QRect& row, const QColor& colour, const QColor& ground);

/// The room that a swatch takes from its row.
int SwatchRoom();

}  // namespace desktop
