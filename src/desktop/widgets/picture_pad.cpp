#include "desktop/widgets/picture_pad.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <QStringList>
#include <algorithm>
#include <optional>
#include <utility>

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
/// The side of the picture in the smallest window, in pixels.
constexpr double DesignSide = 430;
/// How far a halo reaches out round its text, as a part of the text's height.
constexpr double HaloPart = 0.28;

int TextSize(int side) {
  return static_cast<int>(std::clamp(side * TextShare, SmallestText, LargestText));
}

}  // namespace

PicturePad::PicturePad(platform::DrawnPicture& picture, QWidget* parent)
    : QWidget(parent), ground_(palette().color(QPalette::Window)), picture_(picture) {
  // Its margin lies under what stands beside it.
  setAttribute(Qt::WA_TransparentForMouseEvents);
  picture_.Changed = [this] {
    stale_ = true;
    update();
  };
}

PicturePad::~PicturePad() {
  picture_.Changed = nullptr;
}

int PicturePad::RightMargin(int side) {
  return RightRoom * TextSize(side);
}

void PicturePad::Place(QPoint topLeft, int side) {
  side_ = std::max(side, 1);
  // The widths of lines follow the side.
  stale_ = true;
  setGeometry(
      QRect(topLeft, QSize(side_ + RightMargin(side_), side_ + LowerRoom * TextSize(side_))));
}

void PicturePad::TakeCalls() {
  if (!std::exchange(stale_, false)) return;
  namespace call = platform::draw_call;
  shapes_.clear();
  position_ = {};
  tools_ = picture_.Before();
  for (const platform::DrawnPicture::Call& each : picture_.Calls()) {
    tools_.Take(each);
    if (const auto* move = std::get_if<call::MoveTo>(&each)) position_ = move->Position;
    if (const auto* line = std::get_if<call::Line>(&each)) Take(*line);
    if (const auto* on = std::get_if<call::LineTo>(&each)) Take({position_, on->To, on->Colour});
    if (const auto* circle = std::get_if<call::Circle>(&each))
      shapes_.push_back(Ring{circle->Centre, circle->Radius, PenOf(circle->Colour)});
    if (const auto* print = std::get_if<call::Print>(&each)) Take(*print);
  }
}

double PicturePad::StrokeScale() const {
  return std::max(1.0, side_ / DesignSide);
}

QPen PicturePad::PenOf(platform::Rgb colour) const {
  QPen pen(look::ColourOf(colour), tools_.Width * StrokeScale());
  pen.setCapStyle(Qt::RoundCap);
  // A pattern shows only in lines of one pixel.
  if (tools_.Width == 1 && tools_.Style != platform::draw_style::Solid) {
    const bool dotted = tools_.Style == platform::draw_style::Dotted;
    pen.setStyle(dotted ? Qt::DotLine : Qt::DashDotDotLine);
    pen.setCapStyle(Qt::FlatCap);
  }
  return pen;
}

void PicturePad::Take(const platform::draw_call::Line& line) {
  shapes_.push_back(
      Stroke{line.From, line.To, PenOf(line.Colour.value_or(tools_.ForeColor)), tools_.Width > 1});
  position_ = line.To;
}

void PicturePad::Take(const platform::draw_call::Print& print) {
  const auto* last = shapes_.empty() ? nullptr : std::get_if<Stroke>(&shapes_.back());
  // The last barb of an arrow's head starts at its tip, where its name is printed.
  const bool namesArrow = last != nullptr && last->Arrow && last->From == position_;
  shapes_.push_back(Text{position_, QString::fromStdString(print.Text),
                         look::ColourOf(tools_.ForeColor), namesArrow});
  const auto& [topLeft, bottomRight] = tools_.Scale;
  const double unitsPerPixel = static_cast<double>(bottomRight.Y - topLeft.Y) / side_;
  position_ = {topLeft.X, position_.Y + static_cast<float>(QFontMetricsF(TextFont()).height() *
                                                           unitsPerPixel)};
}

void PicturePad::SetGround(const QColor& ground) {
  ground_ = ground;
  update();
}

QString PicturePad::Texts() {
  TakeCalls();
  QStringList texts;
  for (const auto& shape : shapes_) {
    if (const auto* text = std::get_if<Text>(&shape)) texts << text->Words;
  }
  return texts.join(QStringLiteral(", "));
}

QPointF PicturePad::At(platform::Point point) const {
  const auto& [topLeft, bottomRight] = tools_.Scale;
  const double scaleX = side_ / static_cast<double>(bottomRight.X - topLeft.X);
  const double scaleY = side_ / static_cast<double>(bottomRight.Y - topLeft.Y);
  return {static_cast<double>(point.X - topLeft.X) * scaleX,
          static_cast<double>(point.Y - topLeft.Y) * scaleY};
}

QFont PicturePad::TextFont() const {
  QFont text = font();
  text.setPixelSize(TextSize(side_));
  text.setBold(true);
  return text;
}

void PicturePad::paintEvent(QPaintEvent*) {
  TakeCalls();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const std::vector<PlacedText> texts = PlaceTexts();
  painter.setClipRect(QRectF(0, 0, side_, side_));
  PaintBackground(painter);
  PaintHalos(painter, texts);
  PaintArrows(painter);
  painter.setClipping(false);
  painter.setFont(TextFont());
  for (const PlacedText& text : texts) {
    painter.setPen(text.Source->Colour);
    painter.drawText(text.Box, Qt::AlignCenter | Qt::TextDontClip, text.Source->Words);
  }
}

void PicturePad::PaintBackground(QPainter& painter) const {
  for (const auto& shape : shapes_) {
    if (const auto* ring = std::get_if<Ring>(&shape)) Paint(painter, *ring);
    const auto* stroke = std::get_if<Stroke>(&shape);
    if (stroke == nullptr || stroke->Arrow) continue;
    if (look::CasingOf(stroke->Pen.color(), ground_)) {
      painter.setPen(QPen(look::StrongEdge, ThinEdge * StrokeScale()));
      painter.drawLine(At(stroke->From), At(stroke->To));
    }
    Paint(painter, *stroke);
  }
}

void PicturePad::PaintHalos(QPainter& painter, const std::vector<PlacedText>& texts) const {
  const QFont font = TextFont();
  const QFontMetricsF metrics(font);
  for (const PlacedText& text : texts) {
    QPainterPath letters;
    letters.addText(text.Box.left(), text.Box.top() + metrics.ascent(), font, text.Source->Words);
    painter.strokePath(letters, QPen(ground_, 2 * HaloPart * font.pixelSize(), Qt::SolidLine,
                                     Qt::RoundCap, Qt::RoundJoin));
  }
  for (const auto& shape : shapes_) {
    const auto* ring = std::get_if<Ring>(&shape);
    if (ring != nullptr && ring->Pen.style() == Qt::SolidLine) Paint(painter, *ring);
  }
}

void PicturePad::PaintArrows(QPainter& painter) const {
  // An arrow is drawn in several strokes; the edge of one must not lie on another of them.
  std::vector<const Stroke*> arrow;
  const auto paint = [&] {
    for (const Stroke* stroke : arrow)
      PaintEdge(painter, *stroke, 2 * look::CasingWidth * StrokeScale());
    for (const Stroke* stroke : arrow) Paint(painter, *stroke);
    arrow.clear();
  };
  for (const auto& shape : shapes_) {
    const auto* stroke = std::get_if<Stroke>(&shape);
    if (stroke == nullptr || !stroke->Arrow) continue;
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
  const auto& [topLeft, bottomRight] = tools_.Scale;
  const double radius =
      static_cast<double>(ring.Radius) * side_ / static_cast<double>(bottomRight.X - topLeft.X);
  painter.drawEllipse(At(ring.Centre), radius, radius);
}

}  // namespace desktop
