#include "desktop/widgets/quiet_line.h"

#include <QAccessible>
#include <QMouseEvent>
#include <QPainter>
#include <QTextOption>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/widgets/keep_room.h"

namespace desktop {

QuietLine::QuietLine(QWidget* parent) : QLabel(parent), tip_(*this) {
  setTextFormat(Qt::PlainText);
  setAlignment(Qt::AlignLeft | Qt::AlignTop);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
  KeepRoom(*this);
  look::SetTextColour(*this, look::QuietText);
}

void QuietLine::Say(const QString& words) {
  const bool comes = text().isEmpty() && !words.isEmpty();
  setText(words);
  TellWhole();
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

void QuietLine::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  TellWhole();
}

int QuietLine::LayOut(QTextLayout& layout) const {
  QTextOption wrapped(alignment());
  wrapped.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(wrapped);
  layout.beginLayout();
  qreal below = 0;
  int fitting = 0;
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width());
    line.setPosition({0, below});
    below += line.height();
    if (below <= height()) ++fitting;
  }
  layout.endLayout();
  // In the middle of its room where it is to stand there and leaves any free.
  const qreal free = std::max(0.0, (height() - below) / 2);
  layout.setPosition({0, alignment().testFlag(Qt::AlignVCenter) ? free : 0});
  return fitting;
}

void QuietLine::TellWhole() {
  QTextLayout layout(text(), font());
  const bool whole = LayOut(layout) == layout.lineCount();
  tip_.Tell(whole ? QString() : text());
}

void QuietLine::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  QTextLayout layout(text(), font());
  const int fitting = LayOut(layout);
  const bool whole = fitting == layout.lineCount();
  const int last = whole ? fitting : fitting - 1;
  for (int i = 0; i < last; ++i) layout.lineAt(i).draw(&painter, layout.position());
  if (whole || fitting == 0) return;
  const QTextLine line = layout.lineAt(last);
  const QString rest = text().mid(line.textStart());
  painter.drawText(layout.position() + QPointF(line.x(), line.y() + line.ascent()),
                   fontMetrics().elidedText(rest, Qt::ElideRight, width()));
}

}  // namespace desktop
