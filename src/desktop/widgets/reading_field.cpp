#include "desktop/widgets/reading_field.h"

#include <QAccessible>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/widgets/activation_key.h"
#include "desktop/widgets/reading_accessible.h"

namespace desktop {

namespace {

/// In pixels of the smallest window.
constexpr double BarWidth = 4;
constexpr double BarLeft = 4;
constexpr double BarInset = 7;
/// Blank between the digits and the field's edges, as a part of the field's height.
constexpr double SidePart = 0.2;
constexpr double BottomPart = 0.15;
/// What the small line takes, as a part of the field's height.
constexpr double RoomPart = 0.22;
constexpr double SmallestDigits = 9;

}  // namespace

ReadingField::ReadingField(const QColor& mark, QWidget* parent) : QWidget(parent), mark_(mark) {
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
  ReadingAccessible::Install();
}

void ReadingField::SetText(const QString& text) {
  if (text == text_) return;
  const QString before = std::exchange(text_, text);
  if (QAccessible::isActive()) {
    QAccessibleTextUpdateEvent change(this, 0, before, text_);
    QAccessible::updateAccessibility(&change);
  }
  update();
}

void ReadingField::SetDigitSize(double pixels) {
  digitSize_ = pixels;
  update();
}

void ReadingField::SetRoomAbove(bool room) {
  if (room == roomAbove_) return;
  roomAbove_ = room;
  update();
}

void ReadingField::SetLife(Life life) {
  life_ = life;
  update();
}

double ReadingField::TextWidth() const {
  return width() - 2 * SidePart * height();
}

QFont ReadingField::FittingFont() const {
  QFont font = look::TextFont(static_cast<int>(digitSize_));
  const double wanted = QFontMetricsF(font).horizontalAdvance(text_);
  if (wanted > TextWidth()) {
    const double fitting = digitSize_ * TextWidth() / wanted;
    font.setPixelSize(static_cast<int>(std::max(fitting, SmallestDigits)));
  }
  return font;
}

void ReadingField::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF face = QRectF(rect()).adjusted(1, 1, -1, -1);
  QLinearGradient glass(face.topLeft(), face.bottomLeft());
  glass.setColorAt(0, look::Card);
  glass.setColorAt(1, look::Field);
  const bool live = life_ == Life::Live;
  const bool strong = hasFocus() || live;
  painter.setPen(QPen(hasFocus()     ? look::Accent
                      : live         ? look::RunGreen
                      : underMouse() ? look::StrongEdge
                                     : look::Edge,
                      strong ? 2 : 1.2));
  painter.setBrush(glass);
  const double corner = look::Painted(look::Corner);
  painter.drawRoundedRect(face, corner, corner);
  PaintBar(painter, face);
  painter.setFont(FittingFont());
  painter.setPen(life_ == Life::Resting ? look::DisabledText : look::Digits);
  const double left =
      width() - SidePart * height() - QFontMetricsF(painter.font()).horizontalAdvance(text_);
  painter.drawText(QPointF(left, Baseline(painter.font())), text_);
}

void ReadingField::PaintBar(QPainter& painter, const QRectF& face) const {
  painter.setPen(Qt::NoPen);
  painter.setBrush(life_ == Life::Live      ? look::RunGreen
                   : life_ == Life::Resting ? look::Edge
                                            : mark_);
  const double inset = BarInset * look::Scale();
  const double top = face.top() + inset + (roomAbove_ ? face.height() * RoomPart : 0);
  const double bar = BarWidth * look::Scale();
  painter.drawRoundedRect(
      QRectF(face.left() + BarLeft * look::Scale(), top, bar, face.bottom() - inset - top), bar / 2,
      bar / 2);
}

double ReadingField::Baseline(const QFont& digits) const {
  // Digits have no descent: they stand near the bottom and leave the top free.
  if (roomAbove_) return height() * (1 - BottomPart);
  const QRectF ink = QFontMetricsF(digits).tightBoundingRect(QStringLiteral("0"));
  return (height() - ink.height()) / 2 - ink.top();
}

void ReadingField::mousePressEvent(QMouseEvent* event) {
  event->setAccepted(event->button() == Qt::LeftButton);
}

void ReadingField::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !rect().contains(event->position().toPoint())) return;
  if (Clicked) Clicked();
}

void ReadingField::keyPressEvent(QKeyEvent* event) {
  if (!IsActivationKey(*event)) {
    QWidget::keyPressEvent(event);
  } else if (Clicked) {
    Clicked();
  }
}

}  // namespace desktop
