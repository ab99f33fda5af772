#include "desktop/widgets/legend_box.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <optional>

#include "desktop/look/casing.h"
#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/look/text.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr int SwatchWidth = 22;
constexpr int SwatchHeight = 4;
constexpr int SwatchGap = 8;

}  // namespace

LegendBox::LegendBox(QWidget* parent) : QCheckBox(parent) {}

void LegendBox::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton box;
  initStyleOption(&box);
  box.text.clear();
  painter.drawControl(QStyle::CE_CheckBox, box);

  const QRect room = style()->subElementRect(QStyle::SE_CheckBoxContents, &box, this);
  const QColor colour = palette().color(QPalette::WindowText);
  const int thick = look::Scaled(SwatchHeight);
  const QRect swatch(room.left(), room.center().y() - thick / 2, look::Scaled(SwatchWidth), thick);
  const std::optional<QColor> casing = look::CasingOf(colour, look::Card);
  if (casing) painter.fillRect(swatch.adjusted(-1, -1, 1, 1), *casing);
  painter.fillRect(swatch, colour);

  const QRect words = room.adjusted(swatch.width() + look::Scaled(SwatchGap), 0, 0, 0);
  painter.setPen(look::Ink);
  painter.drawText(
      words, Qt::AlignVCenter | Qt::AlignLeft,
      fontMetrics().elidedText(PlainCaption(FromQt(text())), Qt::ElideRight, words.width()));
}

}  // namespace desktop
