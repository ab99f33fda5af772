#include "desktop/widgets/link_label.h"

#include <QKeyEvent>
#include <QPainter>

#include "desktop/look/look.h"
#include "desktop/look/scale.h"
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
  const double width = look::Painted(1.2);
  const double inset = width / 2;
  painter.setPen(QPen(look::Accent, width));
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), look::Painted(3),
                          look::Painted(3));
}

}  // namespace desktop
