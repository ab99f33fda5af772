#include "desktop/binding/cased_curve.h"

#include <optional>

#include "desktop/look/casing.h"

namespace desktop {

void CasedCurve::SetGround(const QColor& ground) {
  ground_ = ground;
  ShowScatter();
}

void CasedCurve::ShowMarkers(const QColor& colour, double size) {
  marker_ = colour;
  markerSize_ = size;
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
  setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssCircle, QPen(edge, look::CasingWidth), marker_,
                                  markerSize_));
}

void CasedCurve::draw(QCPPainter* painter) {
  const QPen line = pen();
  const std::optional<QColor> edge = look::CasingOf(line.color(), ground_);
  if (edge) {
    // The edge first, as a wider curve without markers.
    setScatterStyle(QCPScatterStyle::ssNone);
    setPen(QPen(*edge, line.widthF() + 2 * look::CasingWidth));
    QCPGraph::draw(painter);
    setPen(line);
  }
  ShowScatter();
  QCPGraph::draw(painter);
}

}  // namespace desktop
