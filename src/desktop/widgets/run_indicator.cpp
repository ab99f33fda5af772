#include "desktop/widgets/run_indicator.h"

#include <QEvent>
#include <QPainter>

#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/widgets/announced.h"

namespace desktop {

RunIndicator::RunIndicator(QWidget& button) : QWidget(button.parentWidget()) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  Announce(*this, QAccessible::Indicator, QStringLiteral("capture is running"));
  stackUnder(&button);
  button.installEventFilter(this);
}

bool RunIndicator::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Move || event->type() == QEvent::Resize) {
    const int reach = look::Scaled(Reach);
    const QRect button = static_cast<QWidget*>(watched)->geometry();
    setGeometry(button.adjusted(-reach, -reach, reach, reach));
  }
  return QWidget::eventFilter(watched, event);
}

void RunIndicator::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  const double corner = (height() - 2 * look::Scaled(Reach)) / 6.0 + look::Scaled(Reach);
  // From a faint outer glow to a clear line next to the button.
  constexpr int Rings = 3;
  for (int ring = 0; ring < Rings; ++ring) {
    QColor light = look::RunGreen;
    light.setAlphaF(ring == Rings - 1 ? 0.95F : 0.14F * static_cast<float>(ring + 1));
    const double width = 2.5 * look::Scale();
    const double inset = (0.6 + ring) * width;
    painter.setPen(QPen(light, width));
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), corner - inset,
                            corner - inset);
  }
}

}  // namespace desktop
