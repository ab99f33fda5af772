#include "desktop/widgets/advice_note.h"

#include <QPainter>

#include "desktop/look/look.h"
#include "desktop/look/scale.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr int Padding = 10;
constexpr int BarWidth = 4;

}  // namespace

AdviceNote::AdviceNote(QWidget* parent) : QLabel(parent) {
  setWordWrap(true);
  setTextFormat(Qt::PlainText);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
  setContentsMargins(Padding + BarWidth, Padding - 2, Padding, Padding - 2);
  look::SetTextColour(*this, look::AdviceText);
  hide();
}

void AdviceNote::SetAdvice(const QString& advice) {
  setText(advice);
  setVisible(!advice.isEmpty());
}

void AdviceNote::paintEvent(QPaintEvent* event) {
  {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(look::AdviceGround);
    painter.drawRoundedRect(rect(), look::Painted(look::Corner), look::Painted(look::Corner));
    painter.setBrush(look::AdviceEdge);
    const double bar = look::Painted(BarWidth);
    painter.drawRoundedRect(QRectF(0, 0, bar, height()), bar / 2, bar / 2);
  }
  QLabel::paintEvent(event);
}

}  // namespace desktop
