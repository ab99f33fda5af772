#pragma once

#include <qcustomplot.h>

namespace desktop {

/// A curve that stands out from its ground in any colour: where its own does not, it is drawn on a
/// thin edge, and so are its markers.
class CasedCurve : public QCPGraph {
  Q_OBJECT

 public:
  CasedCurve(QCPAxis* x, QCPAxis* y) : QCPGraph(x, y) {}

  /// What the curve lies on.
  void SetGround(const QColor& ground);
  /// Discs of this colour, `size` pixels wide, at every point.
  void ShowMarkers(const QColor& colour, double size);
  void HideMarkers();

 protected:
  void draw(QCPPainter* painter) override;

 private:
  void ShowScatter();

  QColor ground_;
  QColor marker_;
  double markerSize_ = 0;
};

}  // namespace desktop
