#include "desktop/services/print_page.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainterPath>
#include <algorithm>
#include <optional>

#include "desktop/look/casing.h"
#include "desktop/look/look.h"

namespace desktop {

namespace {

// The page's units: a hundredth of a point, so that each size of a font is a whole number of them.
constexpr double UnitsOfPoint = 100;
constexpr double UnitsOfInch = 72 * UnitsOfPoint;
constexpr double MillimetresOfInch = 25.4;
constexpr double UnitsOfMillimetre = UnitsOfInch / MillimetresOfInch;

/// How narrow a text may become, as a part of its width.
constexpr double Narrowest = 0.5;
/// What reaches out at each side of a text whose colour the paper swallows, in millimetres.
constexpr double EdgeWidth = 0.15;

/// The width of a text without the blanks at its end.
double InkWidth(const QString& text, const QFont& font) {
  qsizetype length = text.size();
  while (length > 0 && text[length - 1].isSpace()) --length;
  return PrintPage::TextWidth(text.left(length), font);
}

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

void PrintPage::AddDrawing(const QRectF& place, const QPicture& drawing, QSize size) {
  drawings_.push_back({place, drawing, size});
}

QRectF PrintPage::Reach() const {
  QRectF reach;
  for (const Picture& picture : pictures_) reach |= picture.Place;
  for (const Drawing& drawing : drawings_) reach |= drawing.Place;
  for (const Text& text : texts_) {
    reach |=
        {text.Place, QSizeF(InkWidth(text.Words, text.Font) * Narrowest, LineHeight(text.Font))};
  }
  return reach;
}

PrintPage::Fit PrintPage::FitInto(const QRectF& room) const {
  const QRectF reach = Reach();
  // A page keeps its places where it can, and is moved only off an edge that cannot be printed on.
  const bool tooFarLeft = reach.left() < room.left();
  const bool tooHigh = reach.top() < room.top();
  const double width = tooFarLeft ? reach.width() : reach.right();
  const double height = tooHigh ? reach.height() : reach.bottom();
  Fit fit;
  fit.Scale = std::min({1.0, (tooFarLeft ? room.width() : room.right()) / std::max(width, 1.0),
                        (tooHigh ? room.height() : room.bottom()) / std::max(height, 1.0)});
  fit.At = {tooFarLeft ? room.left() - reach.left() * fit.Scale : 0,
            tooHigh ? room.top() - reach.top() * fit.Scale : 0};
  return fit;
}

void PrintPage::Paint(QPainter& painter, const QRectF& room) const {
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform |
                         QPainter::LosslessImageRendering);
  const Fit fit = FitInto(room);
  painter.scale(painter.device()->logicalDpiX() / UnitsOfInch,
                painter.device()->logicalDpiY() / UnitsOfInch);
  painter.translate(fit.At * UnitsOfMillimetre);
  painter.scale(fit.Scale, fit.Scale);
  // No text lies under a picture.
  for (const Picture& picture : pictures_) painter.drawImage(Units(picture.Place), picture.Image);
  for (const Drawing& drawing : drawings_) Paint(painter, drawing);
  for (const Text& text : texts_) Paint(painter, text, (room.right() - fit.At.x()) / fit.Scale);
}

void PrintPage::Paint(QPainter& painter, const Drawing& drawing) {
  const QRectF place = Units(drawing.Place);
  // A drawing is played in the dots of its own device.
  const double own = drawing.Calls.logicalDpiX() * 1.0 / painter.device()->logicalDpiX();
  painter.save();
  painter.translate(place.topLeft());
  painter.scale(own * place.width() / drawing.Size.width(),
                own * place.height() / drawing.Size.height());
  painter.drawPicture(0, 0, drawing.Calls);
  painter.restore();
}

void PrintPage::Paint(QPainter& painter, const Text& text, double right) {
  const double width = InkWidth(text.Words, text.Font);
  const double room = right - text.Place.x();
  painter.save();
  painter.translate(text.Place * UnitsOfMillimetre);
  if (width > room) painter.scale(room / width, 1);
  const QPointF baseline(0, QFontMetricsF(text.Font).ascent());
  if (const auto edge = look::CasingOf(text.Colour, Qt::white)) {
    QPainterPath outline;
    outline.addText(baseline, text.Font, text.Words);
    painter.strokePath(outline, QPen(*edge, 2 * EdgeWidth * UnitsOfMillimetre));
  }
  painter.setFont(text.Font);
  painter.setPen(text.Colour);
  painter.drawText(baseline, text.Words);
  painter.restore();
}

}  // namespace desktop
