// Where the texts of a picture stand.

#include <QFontMetricsF>
#include <QLineF>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "desktop/widgets/picture_pad.h"

namespace desktop {

namespace {

/// What is kept free around a text, in pixels of the smallest window.
constexpr double RimClearance = 2;
/// A text that starts on the outer circle, by so many pixels, is meant to stand within.
constexpr double OnTheRim = 1;
/// Steps of a search for a free place, as parts of the height of a text, and how far it goes.
constexpr double Step = 0.25;
constexpr double Farthest = 5;
/// Directions are tried from the arrow's own to both sides, in degrees.
constexpr std::array<double, 13> Turns = {0,  20,  -20, 40,   -40, 60,  -60,
                                          85, -85, 115, -115, 150, -150};

bool Meets(const QRectF& box, const QLineF& line) {
  if (box.contains(line.p1()) || box.contains(line.p2())) return true;
  const std::array<QLineF, 4> edges = {
      QLineF(box.topLeft(), box.topRight()), QLineF(box.topRight(), box.bottomRight()),
      QLineF(box.bottomRight(), box.bottomLeft()), QLineF(box.bottomLeft(), box.topLeft())};
  return std::any_of(edges.begin(), edges.end(), [&](const QLineF& edge) {
    return line.intersects(edge, nullptr) == QLineF::BoundedIntersection;
  });
}

}  // namespace

QRectF PicturePad::BoxOf(const Text& text) const {
  const QFontMetricsF metrics(TextFont());
  // Digits and capitals leave the room of their ascent that accents take.
  return {At(text.Place), QSizeF(metrics.horizontalAdvance(text.Words), metrics.height())};
}

PicturePad::Rim PicturePad::OuterRim() const {
  const Ring* outer = nullptr;
  for (const auto& shape : shapes_) {
    const auto* ring = std::get_if<Ring>(&shape);
    if (ring != nullptr && (outer == nullptr || ring->Radius > outer->Radius)) outer = ring;
  }
  if (outer == nullptr) return {};
  const QPointF centre = At(outer->Centre);
  return {centre, At({outer->Centre.X + outer->Radius, outer->Centre.Y}).x() - centre.x()};
}

bool PicturePad::IsBeyond(const Text& text, const Rim& rim) const {
  return rim.Radius > 0 && QLineF(rim.Centre, At(text.Place)).length() > rim.Radius + OnTheRim;
}

QRectF PicturePad::BelowRim(const Rim& rim, QRectF box) const {
  const double nearest = std::clamp(rim.Centre.x(), box.left(), box.right()) - rim.Centre.x();
  if (std::abs(nearest) >= rim.Radius) return box;
  const double lowest = rim.Centre.y() + std::sqrt(rim.Radius * rim.Radius - nearest * nearest);
  const double ascentRoom = box.height() - TextFont().pixelSize();
  box.moveTop(std::max(box.top(), lowest + RimClearance * StrokeScale() - ascentRoom / 2));
  return box;
}

QRectF PicturePad::WithinRim(const Text& text, const Rim& rim, QRectF box) const {
  if (rim.Radius <= 0) return box;
  const QFontMetricsF metrics(TextFont());
  const QRectF letters = metrics.tightBoundingRect(text.Words);
  const QLineF inward(box.center(), rim.Centre);
  const QPointF step =
      inward.length() > 0 ? (inward.p2() - inward.p1()) / inward.length() : QPointF();
  const double room = rim.Radius - RimClearance * StrokeScale();
  // The letters reach the centre before they have gone this far.
  for (int moved = 0; moved < rim.Radius; ++moved) {
    const QRectF ink = letters.translated(box.left(), box.top() + metrics.ascent());
    const std::array<QPointF, 4> corners = {ink.topLeft(), ink.topRight(), ink.bottomLeft(),
                                            ink.bottomRight()};
    const bool within = std::all_of(corners.begin(), corners.end(), [&](const QPointF& corner) {
      return QLineF(rim.Centre, corner).length() <= room;
    });
    if (within) break;
    box.translate(step);
  }
  return box;
}

bool PicturePad::IsFree(const QRectF& box, const std::vector<PlacedText>& placed) const {
  const double clearance = RimClearance * StrokeScale();
  const QRectF room = box.adjusted(-clearance, 0, clearance, 0);
  for (const PlacedText& other : placed) {
    if (room.intersects(other.Box)) return false;
  }
  for (const auto& shape : shapes_) {
    const auto* stroke = std::get_if<Stroke>(&shape);
    if (stroke == nullptr || !stroke->Arrow) continue;
    const double reach = stroke->Pen.widthF() / 2;
    const QRectF clear = room.adjusted(-reach, -reach, reach, reach);
    if (Meets(clear, QLineF(At(stroke->From), At(stroke->To)))) return false;
  }
  return true;
}

QRectF PicturePad::ClearOfArrows(const Text& text, const std::vector<PlacedText>& placed) const {
  const QRectF natural = BoxOf(text);
  const QPointF tip = At(text.Place);
  const QLineF arrow(At({0, 0}), tip);
  // On the screen angles grow downward as the ordinates do.
  const double along = std::atan2(arrow.dy(), arrow.dx());
  const double height = natural.height();
  QRectF box = natural;
  for (double distance = Step; distance <= Farthest; distance += Step) {
    for (const double turn : Turns) {
      const double angle = along + turn / 180 * std::numbers::pi;
      const QPointF way(std::cos(angle), std::sin(angle));
      // The box's nearest edge stands at this distance from the tip.
      const double half = std::abs(way.x()) * natural.width() / 2 + std::abs(way.y()) * height / 2;
      box.moveCenter(tip + way * (half + distance * height));
      if (IsFree(box, placed)) return box;
    }
  }
  return natural;
}

std::vector<QRectF> PicturePad::TextAreas() {
  TakeCalls();
  const std::vector<PlacedText> placed = PlaceTexts();
  std::vector<QRectF> areas;
  for (const auto& shape : shapes_) {
    const auto* text = std::get_if<Text>(&shape);
    if (text == nullptr) continue;
    const auto place = std::find_if(placed.begin(), placed.end(),
                                    [text](const PlacedText& each) { return each.Source == text; });
    areas.push_back(place->Box);
  }
  return areas;
}

std::vector<PicturePad::PlacedText> PicturePad::PlaceTexts() const {
  const Rim rim = OuterRim();
  std::vector<PlacedText> placed;
  for (const auto& shape : shapes_) {
    const auto* text = std::get_if<Text>(&shape);
    if (text == nullptr || text->NamesArrow) continue;
    const QRectF box = BoxOf(*text);
    placed.push_back(
        {text, IsBeyond(*text, rim) ? BelowRim(rim, box) : WithinRim(*text, rim, box)});
  }
  LevelTexts(placed, rim);
  PlaceBesideArrows(placed);
  return placed;
}

void PicturePad::LevelTexts(std::vector<PlacedText>& placed, const Rim& rim) const {
  for (PlacedText& text : placed) {
    if (!IsBeyond(*text.Source, rim)) continue;
    for (const PlacedText& other : placed) {
      if (IsBeyond(*other.Source, rim) && other.Source->Place.Y == text.Source->Place.Y)
        text.Box.moveTop(std::max(text.Box.top(), other.Box.top()));
    }
  }
}

void PicturePad::PlaceBesideArrows(std::vector<PlacedText>& placed) const {
  for (const auto& shape : shapes_) {
    const auto* text = std::get_if<Text>(&shape);
    if (text != nullptr && text->NamesArrow) placed.push_back({text, ClearOfArrows(*text, placed)});
  }
}

}  // namespace desktop
