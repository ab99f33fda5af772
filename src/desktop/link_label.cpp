#include "desktop/link_label.h"

#include <QKeyEvent>
#include <QPainter>

#include "desktop/activation_key.h"
#include "desktop/look.h"

namespace desktop {

LinkLabel::LinkLabel(QWidget* parent) : ClickLabel(parent) {
  setCursor(Qt::PointingHandCursor);
  setFocusPolicy(Qt::TabFocus);
  look::SetTextColour(*this, look::Accent);
  QFont underlined = font();
  underlined.setUnderline(true);
  setFont(underlined);
}

void LinkLabel::keyPressEvent(QKeyEvent* event) {
  if (!IsActivationKey(*event)) {
    ClickLabel::keyPressEvent(event);
  } else if (Clicked) {
    Clicked();
  }
}

void LinkLabel::paintEvent(QPaintEvent* event) {
  ClickLabel::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(look::Accent, 1.2));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.6, 0.6, -0.6, -0.6), 3, 3);
}

}  // namespace desktop
