#include "desktop/binding/cased_curve.h"

#include <optional>

#include "desktop/look/casing.h"

namespace desktop {

void CasedCurve::SetGround(const QColor& ground) {
  ground_ = ground;
  ShowScatter();
}

void CasedCurve::ShowMarkers(const QColor& colour, double size, double strokes) {
  marker_ = colour;
  markerSize_ = size;
  markerEdge_ = look::CasingWidth * strokes;
  ShowScatter();
}

void CasedCurve::HideMarkers() {
  markerSize_ = 0;
  ShowScatter();
}

void CasedCurve::ShowScatter() {
  if (markerSize_ <= 0) {
    setScatterStyle(QCPScatterStyle::ssNone);
    return;
  }
  const QColor edge = look::CasingOf(marker_, ground_).value_or(marker_);
  setScatterStyle(
      QCPScatterStyle(QCPScatterStyle::ssCircle, QPen(edge, markerEdge_), marker_, markerSize_));
}

void CasedCurve::draw(QCPPainter* painter) {
  const QPen line = pen();
  const std::optional<QColor> edge = look::CasingOf(line.color(), ground_);
  if (edge) {
    // The edge first, as a curve without markers, and within the stroke that every curve has.
    setScatterStyle(QCPScatterStyle::ssNone);
    setPen(QPen(*edge, line.widthF()));
    QCPGraph::draw(painter);
    setPen(QPen(line.color(), line.widthF() * look::CorePart));
  }
  ShowScatter();
  QCPGraph::draw(painter);
  setPen(line);
}

}  // namespace desktop
