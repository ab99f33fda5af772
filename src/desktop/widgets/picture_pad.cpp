#include "desktop/widgets/picture_pad.h"

#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>

#include "desktop/look/look.h"

namespace desktop {

namespace {

/// Height of the texts as a share of the picture's side, and its bounds in pixels.
constexpr double TextShare = 0.028;
constexpr double SmallestText = 12;
constexpr double LargestText = 22;
/// Room for texts beside and below the picture, in heights of a text.
constexpr int RightRoom = 6;
constexpr int LowerRoom = 2;
/// How far a text starts to the right of its place, so that an arrow head there does not touch it.
constexpr double TextInset = 0.4;
/// Width of the light edge that keeps a text readable on top of lines.
constexpr double Halo = 3.5;

int TextSize(int side) {
  return static_cast<int>(std::clamp(side * TextShare, SmallestText, LargestText));
}

}  // namespace

PicturePad::PicturePad(QWidget* parent) : QWidget(parent) {}

int PicturePad::RightMargin(int side) {
  return RightRoom * TextSize(side);
}

void PicturePad::Place(QPoint topLeft, int side) {
  side_ = std::max(side, 1);
  setGeometry(
      QRect(topLeft, QSize(side_ + RightMargin(side_), side_ + LowerRoom * TextSize(side_))));
}

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
  QPen pen(look::ColourOf(colour), width_);
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
  calls_.push_back(Text{position_, QString::fromStdString(text), look::ColourOf(fore_)});
  const double unitsPerPixel = static_cast<double>(bottomRight_.Y - topLeft_.Y) / side_;
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

QPointF PicturePad::At(platform::Point point) const {
  const double scaleX = side_ / static_cast<double>(bottomRight_.X - topLeft_.X);
  const double scaleY = side_ / static_cast<double>(bottomRight_.Y - topLeft_.Y);
  return {static_cast<double>(point.X - topLeft_.X) * scaleX,
          static_cast<double>(point.Y - topLeft_.Y) * scaleY};
}

QFont PicturePad::TextFont() const {
  QFont text = font();
  text.setPixelSize(TextSize(side_));
  text.setBold(true);
  return text;
}

void PicturePad::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  // Background, then what keeps the texts clear of it, then the vectors with their heads, and the
  // texts on top: a text stands at the tip of its vector and must neither hide nor be hidden.
  const auto strokes = [&](bool wide) {
    for (const auto& call : calls_) {
      const auto* stroke = std::get_if<Stroke>(&call);
      if (stroke != nullptr && (stroke->Pen.width() > 1) == wide) Paint(painter, *stroke);
      const auto* ring = std::get_if<Ring>(&call);
      if (ring != nullptr && !wide) Paint(painter, *ring);
    }
  };
  const auto texts = [&](const auto& paint) {
    painter.setClipping(false);
    for (const auto& call : calls_) {
      if (const auto* text = std::get_if<Text>(&call)) paint(*text, Outline(*text));
    }
  };
  const QPen halo(palette().color(QPalette::Window), Halo, Qt::SolidLine, Qt::RoundCap,
                  Qt::RoundJoin);
  strokes(false);
  texts([&](const Text&, const QPainterPath& outline) { painter.strokePath(outline, halo); });
  strokes(true);
  texts([&](const Text& text, const QPainterPath& outline) {
    painter.fillPath(outline, text.Colour);
  });
}

void PicturePad::Paint(QPainter& painter, const Stroke& stroke) const {
  painter.setClipRect(QRectF(0, 0, side_, side_));
  painter.setPen(stroke.Pen);
  painter.drawLine(At(stroke.From), At(stroke.To));
}

void PicturePad::Paint(QPainter& painter, const Ring& ring) const {
  painter.setClipRect(QRectF(0, 0, side_, side_));
  painter.setPen(ring.Pen);
  painter.setBrush(Qt::NoBrush);
  const double radius =
      static_cast<double>(ring.Radius) * side_ / static_cast<double>(bottomRight_.X - topLeft_.X);
  painter.drawEllipse(At(ring.Centre), radius, radius);
}

QPainterPath PicturePad::Outline(const Text& text) const {
  const QFont textFont = TextFont();
  const QPointF corner = At(text.Place);
  QPainterPath outline;
  outline.addText(corner.x() + textFont.pixelSize() * TextInset,
                  corner.y() + QFontMetricsF(textFont).ascent(), textFont, text.Words);
  return outline;
}

}  // namespace desktop
