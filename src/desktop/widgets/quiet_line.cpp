#include "desktop/widgets/quiet_line.h"

#include <QAccessible>
#include <QMouseEvent>
#include <QPainter>
#include <QTextOption>

#include "desktop/look/look.h"
#include "desktop/widgets/keep_room.h"

namespace desktop {

QuietLine::QuietLine(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setAlignment(Qt::AlignLeft | Qt::AlignTop);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
  KeepRoom(*this);
  look::SetTextColour(*this, look::QuietText);
}

void QuietLine::Say(const QString& words) {
  const bool comes = text().isEmpty() && !words.isEmpty();
  setText(words);
  // What follows only counts on; a reader that told each step would never be silent.
  if (!comes || !QAccessible::isActive()) return;
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

QSize QuietLine::sizeHint() const {
  return minimumSizeHint();
}

QSize QuietLine::minimumSizeHint() const {
  return {0, 0};
}

void QuietLine::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && DoubleClicked) DoubleClicked();
}

void QuietLine::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  QTextOption wrapped(alignment());
  wrapped.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  painter.drawText(QRectF(rect()), text(), wrapped);
}

}  // namespace desktop
