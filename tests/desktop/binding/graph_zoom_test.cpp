#include "waveforms_scene.h"

namespace desktop {
namespace {

using platform::CWGraph;

/// A drag from one corner of a rectangle to the opposite one.
struct Gesture {
  const char* Name = nullptr;
  QPoint From;
  QPoint To;
};

const Gesture Gestures[] = {{"down and right", {-100, -80}, {100, 80}},
                            {"down and left", {100, -80}, {-100, 80}},
                            {"up and right", {-100, 80}, {100, -80}},
                            {"up and left", {100, 80}, {-100, -80}}};

/// A rectangle drawn with the mouse.
class GraphZoom : public WaveformsScene {
 protected:
  static constexpr double Pixels = 2;

  /// Draws the rectangle of a gesture round the middle and expects the graph to show what was in
  /// it.
  static void ExpectZoomBy(GraphView& graph, const Gesture& gesture) {
    const QPoint middle = graph.axisRect()->center();
    const QCPRange x = graph.xAxis->range();
    const QCPRange y = graph.yAxis->range();
    const auto column = [&](int pixel) { return graph.xAxis->pixelToCoord(pixel); };
    const auto row = [&](int pixel) { return graph.yAxis->pixelToCoord(pixel); };
    const QCPRange columns(column(middle.x() - 100), column(middle.x() + 100));
    const QCPRange rows(row(middle.y() + 80), row(middle.y() - 80));
    const double nearX = Pixels * x.size() / graph.axisRect()->width();
    const double nearY = Pixels * y.size() / graph.axisRect()->height();

    Drag(graph, middle + gesture.From, middle + gesture.To);

    EXPECT_NEAR(graph.xAxis->range().lower, columns.lower, nearX) << gesture.Name;
    EXPECT_NEAR(graph.xAxis->range().upper, columns.upper, nearX) << gesture.Name;
    EXPECT_NEAR(graph.yAxis->range().lower, rows.lower, nearY) << gesture.Name;
    EXPECT_NEAR(graph.yAxis->range().upper, rows.upper, nearY) << gesture.Name;
  }
};

TEST_F(GraphZoom, ARectangleDrawnFromAnyCornerZoomsOnceAndFallsBackToPan) {
  ShowBlock();
  for (const Gesture& gesture : Gestures) {
    DoubleClick();
    Click("sevOption1(1)");
    ASSERT_EQ(Form().CWGraph1.TrackMode, CWGraph::ZoomMode);

    ExpectZoomBy(Graph(), gesture);

    EXPECT_TRUE(Find<QAbstractButton>("sevOption1(0)").isChecked()) << gesture.Name;
    EXPECT_FALSE(Find<QAbstractButton>("sevOption1(1)").isChecked()) << gesture.Name;
    EXPECT_EQ(Form().CWGraph1.TrackMode, CWGraph::PanMode) << gesture.Name;
  }
}

TEST_F(GraphZoom, AfterAZoomTheNextDragPansInsideIt) {
  ShowBlock();
  Click("sevOption1(1)");
  Drag(Middle() - QPoint(100, 80), Middle() + QPoint(100, 80));
  const QCPRange zoomed = X();

  Drag(Middle(), Middle() + QPoint(60, 0));

  EXPECT_NEAR(X().size(), zoomed.size(), 1e-6);
  EXPECT_LT(X().lower, zoomed.lower);
}

TEST_F(GraphZoom, AClickInZoomModeIsNoZoom) {
  ShowBlock();
  const QCPRange x = X();
  Click("sevOption1(1)");

  QTest::mouseClick(&Graph(), Qt::LeftButton, {}, Middle());
  RightClick();
  QTest::qWait(20);

  EXPECT_EQ(X().size(), x.size());
  EXPECT_TRUE(Form().sevOption1[1].Value);
}

TEST_F(GraphZoom, OnTheRecordersGraphTheRightButtonSwitchesBetweenZoomAndPan) {
  Start();
  ClickTab(forms::tab::Recorder);
  Form().CWGraph2.Plots[0].Y = {0, 10, -10, 5};
  Form().CWGraph2.Visible = true;
  auto& graph = Find<GraphView>("CWGraph2");
  QTest::qWait(20);
  const QPoint middle = graph.axisRect()->center();

  QTest::mouseClick(&graph, Qt::RightButton, {}, middle);
  for (const Gesture& gesture : Gestures) {
    QTest::mouseDClick(&graph, Qt::LeftButton, {}, middle);
    EXPECT_NEAR(graph.xAxis->range().size(), 3, 1e-6);
    ExpectZoomBy(graph, gesture);
    // Here a zoom does not fall back.
    EXPECT_EQ(Form().CWGraph2.TrackMode, CWGraph::ZoomMode) << gesture.Name;
  }

  QTest::mouseClick(&graph, Qt::RightButton, {}, middle);
  const QCPRange zoomed = graph.xAxis->range();
  Drag(graph, middle, middle + QPoint(60, 0));
  EXPECT_EQ(Form().CWGraph2.TrackMode, CWGraph::PanMode);
  EXPECT_NEAR(graph.xAxis->range().size(), zoomed.size(), 1e-6);
  EXPECT_LT(graph.xAxis->range().lower, zoomed.lower);
}

}  // namespace
}  // namespace desktop
