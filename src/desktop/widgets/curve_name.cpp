#include "desktop/widgets/curve_name.h"

#include <QPainter>

#include "desktop/look/look.h"
#include "desktop/widgets/swatch.h"

namespace desktop {

CurveName::CurveName(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setContentsMargins(SwatchRoom(), 0, 0, 0);
}

void CurveName::SetColour(const QColor& colour) {
  colour_ = colour;
  update();
}

QSize CurveName::minimumSizeHint() const {
  return {SwatchRoom(), QLabel::minimumSizeHint().height()};
}

void CurveName::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintSwatch(painter, rect(), colour_, look::Card);
  painter.setPen(palette().color(QPalette::WindowText));
  const QRect words = contentsRect();
  painter.drawText(words, Qt::AlignVCenter | Qt::AlignLeft,
                   fontMetrics().elidedText(text(), Qt::ElideRight, words.width()));
}

}  // namespace desktop
