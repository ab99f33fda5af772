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

/// What is kept free around a text, in pixels.
constexpr double Clearance = 2;
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

QRectF PicturePad::BelowOuterRing(const Text& text, QRectF box) const {
  const Ring* outer = nullptr;
  for (const auto& shape : shapes_) {
    const auto* ring = std::get_if<Ring>(&shape);
    if (ring != nullptr && (outer == nullptr || ring->Radius > outer->Radius)) outer = ring;
  }
  if (outer == nullptr) return box;
  const QPointF centre = At(outer->Centre);
  const QPointF rim = At({outer->Centre.X + outer->Radius, outer->Centre.Y});
  const double radius = rim.x() - centre.x();
  // A text that starts within the circle is meant to stand there.
  if (QLineF(centre, At(text.Place)).length() <= radius) return box;
  const double nearest = std::clamp(centre.x(), box.left(), box.right()) - centre.x();
  if (std::abs(nearest) >= radius) return box;
  const double lowest = centre.y() + std::sqrt(radius * radius - nearest * nearest);
  const double ascentRoom = box.height() - TextFont().pixelSize();
  box.moveTop(std::max(box.top(), lowest + Clearance - ascentRoom / 2));
  return box;
}

bool PicturePad::IsFree(const QRectF& box, const std::vector<PlacedText>& placed) const {
  const QRectF room = box.adjusted(-Clearance, 0, Clearance, 0);
  for (const PlacedText& other : placed) {
    if (room.intersects(other.Box)) return false;
  }
  for (const auto& shape : shapes_) {
    const auto* stroke = std::get_if<Stroke>(&shape);
    if (stroke == nullptr || !IsArrow(*stroke)) continue;
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
  std::vector<PlacedText> placed;
  for (const bool arrows : {false, true}) {
    for (const auto& shape : shapes_) {
      const auto* text = std::get_if<Text>(&shape);
      if (text == nullptr || text->NamesArrow != arrows) continue;
      const QRectF box =
          arrows ? ClearOfArrows(*text, placed) : BelowOuterRing(*text, BoxOf(*text));
      placed.push_back({text, box});
    }
  }
  return placed;
}

}  // namespace desktop
