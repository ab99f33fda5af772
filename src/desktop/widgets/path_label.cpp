#include "desktop/widgets/path_label.h"

#include <QPainter>

namespace desktop {

PathLabel::PathLabel(QWidget* parent) : ClickLabel(parent) {}

QSize PathLabel::minimumSizeHint() const {
  return {1, QLabel::minimumSizeHint().height()};
}

void PathLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft,
                   fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
}

}  // namespace desktop
