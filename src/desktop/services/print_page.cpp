#include "desktop/services/print_page.h"

#include <QFontMetricsF>
#include <QPaintDevice>

#include "desktop/look/look.h"

namespace desktop {

namespace {

// The page's units: a hundredth of a point, so that each size of a font is a whole number of them.
constexpr double UnitsOfPoint = 100;
constexpr double UnitsOfInch = 72 * UnitsOfPoint;
constexpr double MillimetresOfInch = 25.4;
constexpr double UnitsOfMillimetre = UnitsOfInch / MillimetresOfInch;

QRectF Units(const QRectF& millimetres) {
  return {millimetres.topLeft() * UnitsOfMillimetre, millimetres.size() * UnitsOfMillimetre};
}

}  // namespace

QFont PrintPage::Font(const QString& family, double points, bool bold, bool underline) {
  QFont font = look::TextFont(static_cast<int>(points * UnitsOfPoint), family);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setBold(bold);
  font.setUnderline(underline);
  return font;
}

double PrintPage::TextWidth(const QString& text, const QFont& font) {
  return QFontMetricsF(font).horizontalAdvance(text) / UnitsOfMillimetre;
}

double PrintPage::LineHeight(const QFont& font) {
  return QFontMetricsF(font).height() / UnitsOfMillimetre;
}

void PrintPage::AddText(QPointF place, const QString& text, const QFont& font,
                        const QColor& colour) {
  texts_.push_back({place, text, font, colour});
}

void PrintPage::AddPicture(const QRectF& place, const QImage& picture) {
  pictures_.push_back({place, picture});
}

void PrintPage::Paint(QPainter& painter) const {
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.scale(painter.device()->logicalDpiX() / UnitsOfInch,
                painter.device()->logicalDpiY() / UnitsOfInch);
  // No text lies under a picture.
  for (const Picture& picture : pictures_) painter.drawImage(Units(picture.Place), picture.Image);
  for (const Text& text : texts_) {
    painter.setFont(text.Font);
    painter.setPen(text.Colour);
    const QPointF baseline(0, QFontMetricsF(text.Font).ascent());
    painter.drawText(text.Place * UnitsOfMillimetre + baseline, text.Words);
  }
}

}  // namespace desktop
