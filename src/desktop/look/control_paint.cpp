#include "desktop/look/control_paint.h"

#include <algorithm>

#include "desktop/look/scale.h"

namespace desktop::look {

namespace {

/// What the style below keeps free between the title of a group and its frame.
constexpr int TitleGap = 3;

void DrawTick(QPainter& painter, const QRect& area) {
  const QRectF box(area);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Card, 2 * Scale(), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPointF corners[] = {box.topLeft() + QPointF(box.width() * 0.24, box.height() * 0.52),
                             box.topLeft() + QPointF(box.width() * 0.43, box.height() * 0.71),
                             box.topLeft() + QPointF(box.width() * 0.77, box.height() * 0.31)};
  painter.drawPolyline(corners, 3);
  painter.restore();
}

}  // namespace

void DrawBox(QPainter& painter, const QRect& area, const QColor& ground, const QStyle::State& state,
             const QColor& edge) {
  const bool enabled = state.testFlag(QStyle::State_Enabled);
  const bool focus = enabled && state.testFlag(QStyle::State_HasFocus);
  const bool hover = enabled && state.testFlag(QStyle::State_MouseOver);
  const int width = LineWidth(focus ? 2 : 1);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(focus ? Accent : hover ? QuietText : edge, width));
  painter.setBrush(enabled ? ground : Page);
  const double inset = width / 2.0;
  const double corner = Painted(Corner - 1);
  painter.drawRoundedRect(QRectF(area).adjusted(inset, inset, -inset, -inset), corner, corner);
  painter.restore();
}

void DrawChevron(QPainter& painter, const QRect& area, const QColor& colour) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const double scale = Scale();
  painter.setPen(QPen(colour, 1.6 * scale, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPointF tip = QRectF(area).center() + QPointF(0, 2.5 * scale);
  const double reach = 4.5 * scale;
  const QPointF corners[] = {tip + QPointF(-reach, -reach), tip, tip + QPointF(reach, -reach)};
  painter.drawPolyline(corners, 3);
  painter.restore();
}

void DrawCheck(QPainter& painter, const QStyleOption& option) {
  const bool on = option.state.testFlag(QStyle::State_On);
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  DrawBox(painter, option.rect, on && enabled ? Accent : Card, option.state);
  if (on) DrawTick(painter, option.rect);
}

void DrawRadio(QPainter& painter, const QStyleOption& option) {
  const bool on = option.state.testFlag(QStyle::State_On);
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  const bool marked = option.state.testFlag(QStyle::State_HasFocus) || on;
  const QColor mark = enabled ? Accent : DisabledText;
  const int width = LineWidth(marked ? 2 : 1);
  const double inset = LineWidth(2) / 2.0;
  const QRectF circle = QRectF(option.rect).adjusted(inset, inset, -inset, -inset);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(marked ? mark : StrongEdge, width));
  painter.setBrush(Card);
  painter.drawEllipse(circle);
  if (on) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(mark);
    const double rim = circle.width() * 0.27;
    painter.drawEllipse(circle.adjusted(rim, rim, -rim, -rim));
  }
  painter.restore();
}

void DrawButton(QPainter& painter, const QStyleOption& option) {
  const bool down = option.state.testFlag(QStyle::State_Sunken);
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  // The one that Return presses, also while the focus is elsewhere.
  const bool usual =
      button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton);
  DrawBox(painter, option.rect, down ? Pressed : Panel, option.state, usual ? Accent : StrongEdge);
}

void DrawFocus(QPainter& painter, const QStyleOption& option) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const double width = Painted(1.5);
  const double inset = width / 2;
  painter.setPen(QPen(Accent, width));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), Painted(3),
                          Painted(3));
  painter.restore();
}

void DrawGroup(QPainter& painter, const QStyleOption& option) {
  // The title stands above the frame.
  const int title = std::max(Scaled(IndicatorSize), option.fontMetrics.height());
  const QRectF frame = QRectF(option.rect).adjusted(0, title + TitleGap, 0, 0);
  const int width = LineWidth();
  const double inset = width / 2.0;
  const double corner = Painted(Corner);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(StrongEdge, width));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(frame.adjusted(inset, inset, -inset, -inset), corner, corner);
  painter.restore();
}

void DrawProgress(QPainter& painter, const QStyleOptionProgressBar& bar) {
  const int edge = LineWidth();
  QRectF done = QRectF(bar.rect).adjusted(edge, edge, -edge, -edge);
  const double range = static_cast<double>(bar.maximum) - bar.minimum;
  if (range <= 0 || bar.progress <= bar.minimum) return;
  const double corner = std::min(Painted(Corner - 1), done.height() / 2);
  done.setWidth(std::max(done.width() * (bar.progress - bar.minimum) / range, 2 * corner));
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Accent);
  painter.drawRoundedRect(done, corner, corner);
  painter.restore();
}

void DrawTip(QPainter& painter, const QStyleOption& option) {
  const int width = LineWidth();
  painter.fillRect(option.rect, StrongEdge);
  painter.fillRect(option.rect.adjusted(width, width, -width, -width), Card);
}

}  // namespace desktop::look
