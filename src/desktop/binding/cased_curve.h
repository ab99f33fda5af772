#pragma once

#include <qcustomplot.h>

namespace desktop {

/// A curve that stands out from its ground in any colour: where its own does not, it has a thin
/// edge within the width of its line, and so have its markers. No curve looks heavier than another.
class CasedCurve : public QCPGraph {
  Q_OBJECT

 public:
  CasedCurve(QCPAxis* x, QCPAxis* y) : QCPGraph(x, y) {}

  /// What the curve lies on.
  void SetGround(const QColor& ground);
  /// Discs of this colour, `size` pixels wide, at every point; `strokes` is what a pixel of a line
  /// counts.
  void ShowMarkers(const QColor& colour, double size, double strokes);
  void HideMarkers();

 protected:
  void draw(QCPPainter* painter) override;

 private:
  void ShowScatter();

  QColor ground_;
  QColor marker_;
  double markerSize_ = 0;
  double markerEdge_ = 0;
};

}  // namespace desktop
