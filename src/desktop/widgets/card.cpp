#include "desktop/widgets/card.h"

#include <QPainter>
#include <QVBoxLayout>

#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/widgets/announced.h"

namespace desktop {

namespace {

constexpr int Padding = 16;
constexpr int RowGap = 8;
constexpr int ColumnGap = 10;
constexpr int CaptionWidth = 196;

}  // namespace

Ground::Ground(QWidget* parent) : QFrame(parent), colour_(look::Card) {}

void Ground::SetColour(const QColor& colour) {
  colour_ = colour;
  update();
}

void Ground::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const int edge = look::LineWidth();
  const double inset = edge / 2.0;
  const double corner = look::Painted(look::Corner + 2);
  painter.setPen(QPen(look::Edge, edge));
  painter.setBrush(colour_);
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), corner, corner);
}

Card::Card(const QString& heading, QWidget* parent) : Ground(parent), grid_(new QGridLayout) {
  auto* title = new QLabel(heading, this);
  title->setFont(look::BoldFont(look::HeadingSize));
  title->setVisible(!heading.isEmpty());
  Announce(*this, QAccessible::Grouping, heading);
  grid_->setHorizontalSpacing(ColumnGap);
  grid_->setVerticalSpacing(RowGap);
  grid_->setColumnMinimumWidth(0, CaptionWidth);
  grid_->setColumnStretch(1, 1);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(Padding, Padding - 4, Padding, Padding);
  all->setSpacing(RowGap + 2);
  all->addWidget(title);
  all->addLayout(grid_, 1);
}

void Card::AddRow(QLabel* caption, QWidget* field, QWidget* behind) {
  const int row = grid_->rowCount();
  caption->setBuddy(field);
  grid_->addWidget(caption, row, 0);
  // A card that is higher than its rows spreads them, whatever their fields are made of.
  grid_->addWidget(field, row, 1, 1, behind != nullptr ? 1 : 2, Qt::AlignVCenter);
  if (behind != nullptr) grid_->addWidget(behind, row, 2, Qt::AlignVCenter);
}

void Card::AddWide(QWidget* content) {
  grid_->addWidget(content, grid_->rowCount(), 0, 1, 3);
}

}  // namespace desktop
