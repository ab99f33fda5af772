#include "desktop/widgets/click_label.h"

#include <QMouseEvent>

namespace desktop {

void ClickLabel::mousePressEvent(QMouseEvent* event) {
  event->setAccepted(event->button() == Qt::LeftButton);
}

void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !rect().contains(event->position().toPoint())) return;
  if (Clicked) Clicked();
}

void ClickLabel::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && DoubleClicked) DoubleClicked();
}

}  // namespace desktop
