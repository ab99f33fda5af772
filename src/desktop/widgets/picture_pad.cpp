#include "desktop/widgets/picture_pad.h"

#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>
#include <optional>

#include "desktop/look/casing.h"
#include "desktop/look/look.h"

namespace desktop {

namespace {

/// Height of the texts as a share of the picture's side, and its bounds in pixels.
constexpr double TextShare = 0.026;
constexpr double SmallestText = 11;
constexpr double LargestText = 22;
/// Room for texts beside and below the picture, in heights of a text.
constexpr int RightRoom = 4;
constexpr int LowerRoom = 2;
/// Width of what lies below a thin line of a colour that would vanish.
constexpr double ThinEdge = 1.2;

int TextSize(int side) {
  return static_cast<int>(std::clamp(side * TextShare, SmallestText, LargestText));
}

}  // namespace

PicturePad::PicturePad(QWidget* parent)
    : QWidget(parent), ground_(palette().color(QPalette::Window)) {
  // Its margin lies under what stands beside it.
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

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
  const auto* last = calls_.empty() ? nullptr : std::get_if<Stroke>(&calls_.back());
  // The last barb of an arrow's head starts at its tip, where its name is printed.
  const bool namesArrow = last != nullptr && IsArrow(*last) && last->From == position_;
  calls_.push_back(
      Text{position_, QString::fromStdString(text), look::ColourOf(fore_), namesArrow});
  const double unitsPerPixel = static_cast<double>(bottomRight_.Y - topLeft_.Y) / side_;
  position_ = {topLeft_.X, position_.Y + static_cast<float>(QFontMetricsF(TextFont()).height() *
                                                            unitsPerPixel)};
  update();
}

void PicturePad::SetGround(const QColor& ground) {
  ground_ = ground;
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
  const std::vector<PlacedText> texts = PlaceTexts();
  painter.setClipRect(QRectF(0, 0, side_, side_));
  for (const auto& call : calls_) {
    if (const auto* ring = std::get_if<Ring>(&call)) Paint(painter, *ring);
    const auto* stroke = std::get_if<Stroke>(&call);
    if (stroke == nullptr || IsArrow(*stroke)) continue;
    if (look::CasingOf(stroke->Pen.color(), ground_)) {
      painter.setPen(QPen(look::StrongEdge, ThinEdge));
      painter.drawLine(At(stroke->From), At(stroke->To));
    }
    Paint(painter, *stroke);
  }
  painter.setClipping(false);
  for (const PlacedText& text : texts) painter.fillRect(text.Box, ground_);
  painter.setClipRect(QRectF(0, 0, side_, side_));
  PaintArrows(painter);
  painter.setClipping(false);
  painter.setFont(TextFont());
  for (const PlacedText& text : texts) {
    painter.setPen(text.Source->Colour);
    painter.drawText(text.Box, Qt::AlignCenter | Qt::TextDontClip, text.Source->Words);
  }
}

void PicturePad::PaintArrows(QPainter& painter) const {
  // An arrow is drawn in several strokes; the edge of one must not lie on another of them.
  std::vector<const Stroke*> arrow;
  const auto paint = [&] {
    for (const Stroke* stroke : arrow) PaintEdge(painter, *stroke, 2 * look::CasingWidth);
    for (const Stroke* stroke : arrow) Paint(painter, *stroke);
    arrow.clear();
  };
  for (const auto& call : calls_) {
    const auto* stroke = std::get_if<Stroke>(&call);
    if (stroke == nullptr || !IsArrow(*stroke)) continue;
    if (!arrow.empty() && arrow.front()->Pen.color() != stroke->Pen.color()) paint();
    arrow.push_back(stroke);
  }
  paint();
}

void PicturePad::PaintEdge(QPainter& painter, const Stroke& stroke, double width) const {
  const std::optional<QColor> casing = look::CasingOf(stroke.Pen.color(), ground_);
  if (!casing) return;
  QPen edge(*casing, stroke.Pen.widthF() + width);
  edge.setCapStyle(stroke.Pen.capStyle());
  painter.setPen(edge);
  painter.drawLine(At(stroke.From), At(stroke.To));
}

void PicturePad::Paint(QPainter& painter, const Stroke& stroke) const {
  painter.setPen(stroke.Pen);
  painter.drawLine(At(stroke.From), At(stroke.To));
}

void PicturePad::Paint(QPainter& painter, const Ring& ring) const {
  painter.setPen(ring.Pen);
  painter.setBrush(Qt::NoBrush);
  const double radius =
      static_cast<double>(ring.Radius) * side_ / static_cast<double>(bottomRight_.X - topLeft_.X);
  painter.drawEllipse(At(ring.Centre), radius, radius);
}

}  // namespace desktop
