#include "desktop/widgets/read_out_card.h"

#include <QPainter>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/widgets/swatch.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr int Padding = 10;
constexpr int LineGap = 3;
constexpr int ColumnGap = 14;
constexpr int LongestName = 180;

}  // namespace

ReadOutCard::ReadOutCard(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
}

int ReadOutCard::RowHeight() const {
  return fontMetrics().height() + look::Scaled(LineGap);
}

int ReadOutCard::NameWidth() const {
  int width = 0;
  for (const Row& row : rows_) width = std::max(width, fontMetrics().horizontalAdvance(row.Name));
  // A text is as wide as its parts, which may be a little more than whole pixels.
  return std::min(width + 1, look::Scaled(LongestName));
}

int ReadOutCard::ValueWidth() const {
  int width = 0;
  for (const Row& row : rows_) width = std::max(width, fontMetrics().horizontalAdvance(row.Value));
  return width;
}

void ReadOutCard::Tell(const QString& heading, const std::vector<Row>& rows) {
  heading_ = heading;
  rows_ = rows;
  const QFontMetrics bold(look::BoldFont(font().pixelSize()));
  const int columns = SwatchRoom() + NameWidth() + look::Scaled(ColumnGap) + ValueWidth();
  const int lines = static_cast<int>(rows_.size()) + 1;
  const int padding = look::Scaled(Padding);
  resize(std::max(columns, bold.horizontalAdvance(heading_)) + 2 * padding,
         lines * RowHeight() + 2 * padding);
  update();
}

void ReadOutCard::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(look::StrongEdge, look::Scale()));
  painter.setBrush(look::Card);
  const double inset = look::Scale() / 2;
  const double corner = look::Scaled(look::Corner);
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), corner, corner);

  const int padding = look::Scaled(Padding);
  QRect line(padding, padding, width() - 2 * padding, RowHeight());
  painter.setPen(look::Ink);
  painter.setFont(look::BoldFont(font().pixelSize()));
  painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, heading_);
  painter.setFont(font());
  for (const Row& row : rows_) {
    line.translate(0, RowHeight());
    const QRect words = PaintSwatch(painter, line, row.Colour, look::Card);
    painter.setPen(look::Ink);
    painter.drawText(words, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(row.Name, Qt::ElideRight, NameWidth()));
    painter.drawText(words, Qt::AlignRight | Qt::AlignVCenter, row.Value);
  }
}

}  // namespace desktop
