#include "desktop/picture_pad.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <QStringList>
#include <algorithm>

namespace desktop {

namespace {

/// Height of the texts as a share of the picture's side, and its bounds in pixels.
constexpr double TextShare = 0.028;
constexpr double SmallestText = 12;
constexpr double LargestText = 22;
/// Width of the light edge that keeps a text readable on top of lines.
constexpr double Halo = 3.5;

QColor ColourOf(platform::Rgb rgb) {
  return {rgb.Red, rgb.Green, rgb.Blue};
}

}  // namespace

PicturePad::PicturePad(QWidget* parent) : QWidget(parent) {}

void PicturePad::Clear() {
  calls_.clear();
  position_ = {};
  update();
}

void PicturePad::Scale(platform::Point topLeft, platform::Point bottomRight) {
  topLeft_ = topLeft;
  bottomRight_ = bottomRight;
}

QPen PicturePad::PenOf(platform::Rgb colour) const {
  QPen pen(ColourOf(colour), width_);
  pen.setCapStyle(Qt::RoundCap);
  // A pattern shows only in lines of one pixel.
  if (width_ == 1 && style_ != Solid) {
    pen.setStyle(style_ == Dotted ? Qt::DotLine : Qt::DashDotDotLine);
    pen.setCapStyle(Qt::FlatCap);
  }
  return pen;
}

void PicturePad::Line(platform::Point from, platform::Point to,
                      std::optional<platform::Rgb> colour) {
  calls_.push_back(Stroke{from, to, PenOf(colour.value_or(fore_))});
  position_ = to;
  update();
}

void PicturePad::Circle(platform::Point centre, float radius, platform::Rgb colour) {
  calls_.push_back(Ring{centre, radius, PenOf(colour)});
  update();
}

void PicturePad::Print(const std::string& text) {
  calls_.push_back(Text{position_, QString::fromStdString(text), ColourOf(fore_)});
  const double unitsPerPixel =
      static_cast<double>(bottomRight_.Y - topLeft_.Y) / std::max(Side(), 1.0);
  position_ = {topLeft_.X, position_.Y + static_cast<float>(QFontMetricsF(TextFont()).height() *
                                                            unitsPerPixel)};
  update();
}

QString PicturePad::Texts() const {
  QStringList texts;
  for (const auto& call : calls_) {
    if (const auto* text = std::get_if<Text>(&call)) texts << text->Words;
  }
  return texts.join(QStringLiteral(", "));
}

double PicturePad::Side() const {
  return std::min(width() - RightMargin, height() - LowerMargin);
}

QPointF PicturePad::At(platform::Point point) const {
  const double scaleX = Side() / static_cast<double>(bottomRight_.X - topLeft_.X);
  const double scaleY = Side() / static_cast<double>(bottomRight_.Y - topLeft_.Y);
  return {static_cast<double>(point.X - topLeft_.X) * scaleX,
          static_cast<double>(point.Y - topLeft_.Y) * scaleY};
}

QFont PicturePad::TextFont() const {
  QFont text = font();
  text.setPixelSize(static_cast<int>(std::clamp(Side() * TextShare, SmallestText, LargestText)));
  text.setBold(true);
  return text;
}

void PicturePad::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const auto& call : calls_) {
    std::visit([&](const auto& item) { Paint(painter, item); }, call);
  }
}

void PicturePad::Paint(QPainter& painter, const Stroke& stroke) const {
  painter.setClipRect(QRectF(0, 0, Side(), Side()));
  painter.setPen(stroke.Pen);
  painter.drawLine(At(stroke.From), At(stroke.To));
}

void PicturePad::Paint(QPainter& painter, const Ring& ring) const {
  painter.setClipRect(QRectF(0, 0, Side(), Side()));
  painter.setPen(ring.Pen);
  painter.setBrush(Qt::NoBrush);
  const double radius =
      static_cast<double>(ring.Radius) * Side() / static_cast<double>(bottomRight_.X - topLeft_.X);
  painter.drawEllipse(At(ring.Centre), radius, radius);
}

void PicturePad::Paint(QPainter& painter, const Text& text) const {
  painter.setClipping(false);
  const QFont textFont = TextFont();
  QPainterPath outline;
  const QPointF corner = At(text.Place);
  outline.addText(corner.x(), corner.y() + QFontMetricsF(textFont).ascent(), textFont, text.Words);
  painter.strokePath(outline, QPen(palette().color(QPalette::Window), Halo, Qt::SolidLine,
                                   Qt::RoundCap, Qt::RoundJoin));
  painter.fillPath(outline, text.Colour);
}

}  // namespace desktop
