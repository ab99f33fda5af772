#include "desktop/widgets/counter_label.h"

#include <QPainter>
#include <algorithm>

#include "desktop/look/casing.h"
#include "desktop/look/look.h"
#include "desktop/look/scale.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr int SideRoom = 6;
constexpr int EdgeRoom = 3;
/// How narrow letters may become where a long text meets the end of its line, in percent.
constexpr int Narrowest = 70;

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
    painter.drawRoundedRect(rect(), look::Painted(look::Corner), look::Painted(look::Corner));
  }
  if (fontMetrics().horizontalAdvance(text()) <= contentsRect().width()) {
    ClickLabel::paintEvent(event);
    return;
  }
  QPainter painter(this);
  painter.setFont(FittingFont());
  painter.setPen(digits);
  painter.drawText(
      contentsRect(), Qt::AlignLeft | Qt::AlignVCenter,
      painter.fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width()));
}

QFont CounterLabel::FittingFont() const {
  QFont fitting = font();
  // How much narrower a font becomes is its own to say.
  for (int stretch = 100; stretch >= Narrowest; --stretch) {
    fitting.setStretch(stretch);
    if (QFontMetrics(fitting).horizontalAdvance(text()) <= contentsRect().width()) break;
  }
  return fitting;
}

bool CounterLabel::IsWhole() const {
  return QFontMetrics(FittingFont()).horizontalAdvance(text()) <= contentsRect().width();
}

QSize CounterLabel::minimumSizeHint() const {
  return {1, ClickLabel::minimumSizeHint().height()};
}

}  // namespace desktop
