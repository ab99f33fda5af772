#include "desktop/widgets/run_button.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/look/scale.h"

namespace desktop {

namespace {

/// In pixels of the smallest window; the width is that of the column which the button stands in.
constexpr int Height = 64;
/// Word, sign and the gap between them as parts of the button's height.
constexpr double WordPart = 0.32;
constexpr double SignPart = 0.34;
constexpr double GapPart = 0.2;

}  // namespace

RunButton::RunButton(QWidget* parent) : QAbstractButton(parent) {
  setCursor(Qt::PointingHandCursor);
  setAttribute(Qt::WA_Hover);
  setFocusPolicy(Qt::StrongFocus);
  setFixedHeight(Height);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void RunButton::SetColour(const QColor& colour) {
  colour_ = colour;
  update();
}

void RunButton::SetFaces(const QString& off, const QString& on) {
  offFace_ = off;
  onFace_ = on;
  ShowFace();
}

void RunButton::SetPosition(bool on) {
  on_ = on;
  ShowFace();
}

void RunButton::ShowFace() {
  setText(on_ ? onFace_ : offFace_);
  update();
}

QFont RunButton::WordFont(double room) const {
  QFont font = look::BoldFont(static_cast<int>(height() * WordPart));
  const double wanted = QFontMetricsF(font).horizontalAdvance(text());
  if (wanted > room) {
    font.setPixelSize(
        std::max(look::SmallSize, static_cast<int>(font.pixelSize() * room / wanted)));
  }
  return font;
}

void RunButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool pressed = isDown() || on_;
  const double width = look::Painted(hasFocus() ? 2.5 : 1.5);
  const double inset = width / 2;
  const QRectF face = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
  QLinearGradient shade(face.topLeft(), face.bottomLeft());
  shade.setColorAt(0, pressed ? colour_.darker(108) : colour_.lighter(104));
  shade.setColorAt(1, pressed ? colour_ : colour_.darker(104));
  const QColor edge = hasFocus() || (underMouse() && isEnabled()) ? look::Accent : look::StrongEdge;
  painter.setPen(QPen(edge, width));
  painter.setBrush(isEnabled() ? QBrush(shade) : QBrush(look::Page));
  const double corner = height() / 6.0;
  painter.drawRoundedRect(face, corner, corner);

  const double sign = height() * SignPart;
  const double gap = height() * GapPart;
  painter.setFont(WordFont(face.width() - sign - 3 * gap));
  const double word = QFontMetricsF(painter.font()).horizontalAdvance(text());
  const double left = face.center().x() - (sign + gap + word) / 2;
  DrawSign(painter, QRectF(left, face.center().y() - sign / 2, sign, sign));
  painter.setPen(isEnabled() ? look::Ink : look::DisabledText);
  painter.drawText(QRectF(left + sign + gap, face.top(), word + 1, face.height()),
                   Qt::AlignVCenter | Qt::AlignLeft, text());
}

void RunButton::DrawSign(QPainter& painter, const QRectF& area) const {
  painter.setPen(Qt::NoPen);
  painter.setBrush(!isEnabled() ? look::DisabledText : on_ ? look::StopRed : look::RunGreen);
  if (on_) {
    const double inset = area.width() * 0.06;
    painter.drawRoundedRect(area.adjusted(inset, inset, -inset, -inset), look::Painted(3),
                            look::Painted(3));
    return;
  }
  QPainterPath arrow(area.topLeft() + QPointF(area.width() * 0.1, 0));
  arrow.lineTo(area.right(), area.center().y());
  arrow.lineTo(area.left() + area.width() * 0.1, area.bottom());
  arrow.closeSubpath();
  painter.drawPath(arrow);
}

}  // namespace desktop
