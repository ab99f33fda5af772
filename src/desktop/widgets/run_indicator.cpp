#include "desktop/widgets/run_indicator.h"

#include <QPainter>

#include "desktop/look/look.h"

namespace desktop {

RunIndicator::RunIndicator(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAccessibleName(QStringLiteral("capture is running"));
}

void RunIndicator::CentreOn(const QWidget& button) {
  setGeometry(button.geometry().adjusted(-Reach, -Reach, Reach, Reach));
}

void RunIndicator::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  const double corner = (height() - 2 * Reach) / 6.0 + Reach;
  // From a faint outer glow to a clear line next to the button.
  constexpr int Rings = 3;
  for (int ring = 0; ring < Rings; ++ring) {
    QColor light = look::RunGreen;
    light.setAlphaF(ring == Rings - 1 ? 0.95F : 0.14F * static_cast<float>(ring + 1));
    const double inset = 1.5 + ring * 2.5;
    painter.setPen(QPen(light, 2.5));
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), corner - inset,
                            corner - inset);
  }
}

}  // namespace desktop
