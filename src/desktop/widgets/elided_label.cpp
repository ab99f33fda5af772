#include "desktop/widgets/elided_label.h"

#include <QPainter>

namespace desktop {

ElidedLabel::ElidedLabel(QWidget* parent) : ClickLabel(parent), tip_(new WholeTip(*this)) {}

QSize ElidedLabel::minimumSizeHint() const {
  return {1, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, shown);
  // A new text, font or size all end here.
  tip_->Tell(shown == text() ? QString() : text());
}

}  // namespace desktop
