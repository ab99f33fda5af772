#pragma once

#include <qcustomplot.h>

#include <QTimer>
#include <array>
#include <optional>

#include "desktop/binding/cased_curve.h"
#include "desktop/look/scale.h"
#include "platform/controls/cw_graph.h"
#include "platform/loop/guard.h"

namespace desktop {

/// A graph control on the screen: eight curves over the index of their samples. It draws what the
/// control holds and passes the mouse on; which mode a drag works in is the control's to say.
class GraphView : public QCustomPlot, public look::Scalable {
  Q_OBJECT

 public:
  GraphView(platform::CWGraph& graph, platform::Guard& guard, QWidget* parent);
  void TakeScale() override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void FollowPlots();
  void FollowGraph();
  void TakeMouse();
  /// Draws once for all changes of a moment, unless a refresh comes first.
  void DrawSoon();
  /// A graph that nobody sees is drawn when it is shown.
  void DrawNow(RefreshPriority priority);
  void ShowCurve(std::size_t plot);
  void FollowTime();
  void FollowAxis(platform::Axis& axis, QCPAxis& shown);
  void ShowStyle(std::size_t plot, double strokes);
  void ShowTrackMode();
  void ShowBackground();
  void TellRange(platform::Axis& control, const QCPAxis& axis);
  /// Gives texts, axes, curves and markers their sizes; `lengths` is what a pixel of the design
  /// counts, `strokes` what a pixel of a line does.
  void Dress(const QFont& texts, double lengths, double strokes);
  void DressForScreen();
  platform::Picture Draw();
  platform::Picture DrawForPaper();
  void ScaleX();
  void ScaleY();
  void ZoomInto(const QRect& drag, Qt::MouseButton button);
  void ShowAll();
  /// The range of the values that the visible curves hold; nothing where none is visible.
  std::optional<QCPRange> VisibleValues() const;

  platform::CWGraph& graph_;
  platform::Guard& guard_;
  std::array<CasedCurve*, 8> curves_{};
  QTimer drawing_;
  /// The ends of an axis come from the screen, not from the program.
  bool telling_ = false;
};

}  // namespace desktop
