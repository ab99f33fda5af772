#include "desktop/widgets/counter_label.h"

#include <QPainter>

#include "desktop/look/casing.h"
#include "desktop/look/look.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr int SideRoom = 6;
constexpr int EdgeRoom = 3;

}  // namespace

CounterLabel::CounterLabel(QWidget* parent) : ClickLabel(parent) {
  setContentsMargins(SideRoom, EdgeRoom, SideRoom, EdgeRoom);
}

void CounterLabel::paintEvent(QPaintEvent* event) {
  const QColor digits = palette().color(QPalette::WindowText);
  if (look::Contrast(digits, look::Card) < look::ReadableContrast) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(look::Plate);
    painter.drawRoundedRect(rect(), look::Corner, look::Corner);
  }
  ClickLabel::paintEvent(event);
}

}  // namespace desktop
