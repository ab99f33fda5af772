#include "desktop/binding/axis_look.h"

#include <cmath>

#include "desktop/look/look.h"

namespace desktop {

namespace {

const QColor GridColour(16, 37, 61, 38);
const QColor ZeroColour(16, 37, 61, 110);
const QColor TimeColour(16, 37, 61, 58);

// In pixels of the smallest window.
constexpr double TickLength = 5;
constexpr double SubTickLength = 2;
constexpr double TickLabelGap = 4;
constexpr double LabelGap = 4;
constexpr double OuterGap = 4;

}  // namespace

void DressAxis(QCPAxis& axis, const AxisSize& size) {
  const auto length = [&](double pixels) {
    return static_cast<int>(std::lround(pixels * size.Lengths));
  };
  axis.setTickLabelFont(size.Texts);
  axis.setLabelFont(size.Texts);
  axis.setTickLabelColor(look::Ink);
  axis.setLabelColor(look::Ink);
  axis.setTickLength(length(TickLength));
  axis.setSubTickLength(length(SubTickLength));
  axis.setTickLabelPadding(length(TickLabelGap));
  axis.setLabelPadding(length(LabelGap));
  axis.setPadding(length(OuterGap));
  const QPen line(look::Ink, size.Strokes);
  axis.setBasePen(line);
  axis.setTickPen(line);
  axis.setSubTickPen(line);
  const bool time = axis.axisType() == QCPAxis::atTop;
  axis.grid()->setPen(time ? QPen(TimeColour, size.Strokes, Qt::DotLine)
                           : QPen(GridColour, size.Strokes));
  axis.grid()->setZeroLinePen(time ? QPen(Qt::NoPen) : QPen(ZeroColour, size.Strokes));
}

}  // namespace desktop
