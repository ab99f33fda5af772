#include "desktop/widgets/curve_name.h"

#include <QPainter>

#include "desktop/look/look.h"
#include "desktop/widgets/swatch.h"

namespace desktop {

CurveName::CurveName(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
}

void CurveName::SetColour(const QColor& colour) {
  colour_ = colour;
  update();
}

QSize CurveName::sizeHint() const {
  return QLabel::sizeHint() + QSize(SwatchRoom(), 0);
}

QSize CurveName::minimumSizeHint() const {
  return {SwatchRoom(), QLabel::minimumSizeHint().height()};
}

void CurveName::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect words = PaintSwatch(painter, rect(), colour_, look::Page);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(words, Qt::AlignVCenter | Qt::AlignLeft,
                   fontMetrics().elidedText(text(), Qt::ElideRight, words.width()));
}

}  // namespace desktop
