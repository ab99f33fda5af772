#include "desktop/widgets/advice_note.h"

#include <QPainter>

#include "desktop/look/look.h"

namespace desktop {

namespace {

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
    painter.drawRoundedRect(rect(), look::Corner, look::Corner);
    painter.setBrush(look::AdviceEdge);
    painter.drawRoundedRect(QRectF(0, 0, BarWidth, height()), BarWidth / 2.0, BarWidth / 2.0);
  }
  QLabel::paintEvent(event);
}

}  // namespace desktop
