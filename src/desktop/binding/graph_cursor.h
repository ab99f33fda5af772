#pragma once

#include <qcustomplot.h>

#include <QObject>
#include <optional>

#include "desktop/widgets/read_out_card.h"
#include "platform/controls/cw_graph.h"
#include "platform/loop/guard.h"

namespace desktop {

/// Reads the points of a graph that stands still: a line under the mouse, or where the keys have
/// brought it, and beside it a card with what the curves say there. What they say is the control's
/// affair; the picture of the graph for the clipboard and for paper knows nothing of it.
class GraphCursor : public QObject {
  Q_OBJECT

 public:
  GraphCursor(QCustomPlot& view, platform::CWGraph& graph, platform::Guard& guard);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void TakeMouse(const QMouseEvent& event);
  /// False where the key is none of the cursor's.
  bool TakeKey(const QKeyEvent& event);
  void Step(int points);
  void ReadNear(double x);
  /// Follows curves and axes that have changed.
  void ReadAnew();
  void Tell();
  /// Stands line and card where the point is.
  void Place();
  void Hide();

  QCustomPlot& view_;
  platform::CWGraph& graph_;
  platform::Guard& guard_;
  QWidget* line_;
  ReadOutCard* card_;
  std::optional<platform::PointReading> reading_;
};

}  // namespace desktop
