#pragma once

#include <QTest>

#include "desktop/binding/graph_view.h"
#include "window_scene.h"

namespace desktop {

/// Scenes on the Waveforms view with the simulated bus.
class WaveformsScene : public WindowScene {
 protected:
  void GoWaveforms() {
    Start();
    GoMeasure();
    ClickTab(forms::tab::Waveforms);
  }
  /// Runs the view up to its first block.
  void RunToABlock() {
    GoWaveforms();
    Click("CWButton1");
    ASSERT_TRUE(WaitFor([this] { return Program().Acquisition.State.BlockCount > 0; }));
  }
  /// The view with a block on its graph, stopped.
  void ShowBlock() {
    RunToABlock();
    ASSERT_TRUE(WaitFor([this] { return Find<QWidget>("CWButton1").isEnabled(); }));
    Click("CWButton1");
    ASSERT_FALSE(Program().Acquisition.State.LookingForScope);
  }
  void WaitForTwoBlocks() {
    const auto before = Program().Acquisition.State.BlockCount;
    ASSERT_TRUE(WaitFor([&] { return Program().Acquisition.State.BlockCount > before + 1; }));
  }

  GraphView& Graph() { return Find<GraphView>("CWGraph1"); }
  QCPRange X() { return Graph().xAxis->range(); }
  QCPRange Y() { return Graph().yAxis->range(); }
  QPoint Middle() { return Graph().axisRect()->center(); }
  void Drag(QPoint from, QPoint to) { Drag(Graph(), from, to); }
  static void Drag(GraphView& graph, QPoint from, QPoint to) {
    QTest::mousePress(&graph, Qt::LeftButton, {}, from);
    QTest::mouseMove(&graph, (from + to) / 2);
    QTest::mouseMove(&graph, to);
    QTest::mouseRelease(&graph, Qt::LeftButton, {}, to);
    QTest::qWait(20);
  }
  void DoubleClick() { QTest::mouseDClick(&Graph(), Qt::LeftButton, {}, Middle()); }
  void RightClick() { QTest::mouseClick(&Graph(), Qt::RightButton, {}, Middle()); }
};

}  // namespace desktop
