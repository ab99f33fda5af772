#include "desktop/widgets/link_label.h"

#include <QKeyEvent>
#include <QPainter>

#include "desktop/look/look.h"
#include "desktop/widgets/activation_key.h"

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
