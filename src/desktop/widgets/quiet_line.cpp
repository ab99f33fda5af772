#include "desktop/widgets/quiet_line.h"

#include <QAccessible>
#include <QPainter>
#include <QTextOption>

#include "desktop/look/look.h"
#include "desktop/widgets/keep_room.h"

namespace desktop {

QuietLine::QuietLine(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
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

void QuietLine::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  QTextOption wrapped(Qt::AlignLeft | Qt::AlignTop);
  wrapped.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  painter.drawText(QRectF(rect()), text(), wrapped);
}

}  // namespace desktop
