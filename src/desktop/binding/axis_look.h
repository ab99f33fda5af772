#pragma once

#include <qcustomplot.h>

namespace desktop {

/// How large an axis is drawn: the font of its texts, and what a pixel of the design counts in
/// lengths and in the widths of lines.
struct AxisSize {
  QFont Texts;
  double Lengths = 1;
  double Strokes = 1;
};

/// Gives an axis with its grid the look and the size that all axes of a graph have.
void DressAxis(QCPAxis& axis, const AxisSize& size);

}  // namespace desktop
