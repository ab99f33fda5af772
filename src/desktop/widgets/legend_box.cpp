#include "desktop/widgets/legend_box.h"

#include <QStyleOptionButton>
#include <QStylePainter>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/widgets/swatch.h"

namespace desktop {

LegendBox::LegendBox(QWidget* parent) : QCheckBox(parent) {}

void LegendBox::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton box;
  initStyleOption(&box);
  box.text.clear();
  painter.drawControl(QStyle::CE_CheckBox, box);

  const QRect room = style()->subElementRect(QStyle::SE_CheckBoxContents, &box, this);
  const QRect words = PaintSwatch(painter, room, palette().color(QPalette::WindowText), look::Card);
  painter.setPen(look::Ink);
  painter.drawText(
      words, Qt::AlignVCenter | Qt::AlignLeft,
      fontMetrics().elidedText(PlainCaption(FromQt(text())), Qt::ElideRight, words.width()));
}

}  // namespace desktop
