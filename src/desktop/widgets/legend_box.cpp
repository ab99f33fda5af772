#include "desktop/widgets/legend_box.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {

namespace {

constexpr double EdgeWidth = 2.6;
/// Colours lighter than this get a dark edge.
constexpr double LightColour = 0.6;

double Lightness(const QColor& colour) {
  return 0.2126 * colour.redF() + 0.7152 * colour.greenF() + 0.0722 * colour.blueF();
}

}  // namespace

LegendBox::LegendBox(QWidget* parent) : QCheckBox(parent) {}

void LegendBox::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton box;
  initStyleOption(&box);
  const QString words =
      fontMetrics().elidedText(PlainCaption(FromQt(box.text)), Qt::ElideRight,
                               style()->subElementRect(QStyle::SE_CheckBoxContents, &box).width());
  box.text.clear();
  painter.drawControl(QStyle::CE_CheckBox, box);

  const QRect room = style()->subElementRect(QStyle::SE_CheckBoxContents, &box, this);
  const QFontMetricsF metrics(font());
  QPainterPath outline;
  outline.addText(room.left(), room.center().y() + (metrics.ascent() - metrics.descent()) / 2 + 0.5,
                  font(), words);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor colour = palette().color(QPalette::WindowText);
  if (Lightness(colour) > LightColour) {
    painter.strokePath(outline,
                       QPen(look::Ink, EdgeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  }
  painter.fillPath(outline, colour);
}

}  // namespace desktop
