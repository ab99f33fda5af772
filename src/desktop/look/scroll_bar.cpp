#include "desktop/look/scroll_bar.h"

#include <QStyle>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/look/scale.h"

namespace desktop::look {

namespace {

// In pixels of the smallest window.
constexpr int LeastSlider = 28;
constexpr double Inset = 3;
/// Stands out from every ground by 3 : 1 and more.
constexpr QColor Slider(100, 125, 154);

}  // namespace

QRect SliderOf(const QStyleOptionSlider& bar) {
  const bool across = bar.orientation == Qt::Horizontal;
  const int way = across ? bar.rect.width() : bar.rect.height();
  const qint64 range = static_cast<qint64>(bar.maximum) - bar.minimum;
  if (range <= 0) return bar.rect;
  const auto part =
      static_cast<int>(static_cast<qint64>(way) * bar.pageStep / (range + bar.pageStep));
  const int length = std::clamp(part, std::min(Scaled(LeastSlider), way), way);
  const int start = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                    way - length, bar.upsideDown);
  const QPoint corner = bar.rect.topLeft();
  return across ? QRect(corner.x() + start, corner.y(), length, bar.rect.height())
                : QRect(corner.x(), corner.y() + start, bar.rect.width(), length);
}

void PaintScrollBar(QPainter& painter, const QStyleOptionSlider& bar) {
  if (bar.maximum <= bar.minimum) return;
  const bool held = bar.state.testFlag(QStyle::State_Sunken) ||
                    (bar.state.testFlag(QStyle::State_MouseOver) &&
                     bar.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider));
  const double inset = Painted(Inset);
  const QRectF slider = QRectF(SliderOf(bar)).adjusted(inset, inset, -inset, -inset);
  const double corner = std::min(slider.width(), slider.height()) / 2;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(held ? QuietText : Slider);
  painter.drawRoundedRect(slider, corner, corner);
  painter.restore();
}

}  // namespace desktop::look
