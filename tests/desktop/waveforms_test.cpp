#include <QTest>

#include "desktop/graph_view.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// The Waveforms view with a block of the simulated bus on its graph, stopped.
class Waveforms : public WindowScene {
 protected:
  static constexpr int WaveformsTab = 4;

  void ShowBlock() {
    Start();
    GoMeasure();
    ClickTab(WaveformsTab);
    Click("CWButton1");
    ASSERT_TRUE(WaitFor([this] { return Program().State.BlockCount > 0; }));
    ASSERT_TRUE(WaitFor([this] { return Find<QWidget>("CWButton1").isEnabled(); }));
    Click("CWButton1");
    ASSERT_FALSE(Program().State.LookingForScope);
  }
  GraphView& Graph() { return Find<GraphView>("CWGraph1"); }
  QPoint Middle() { return Graph().axisRect()->center(); }
  void Drag(QPoint from, QPoint to) {
    QTest::mousePress(&Graph(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&Graph(), (from + to) / 2);
    QTest::mouseMove(&Graph(), to);
    QTest::mouseRelease(&Graph(), Qt::LeftButton, {}, to);
    QTest::qWait(20);
  }
};

TEST_F(Waveforms, ShowTheBlockOverItsSamples) {
  ShowBlock();

  EXPECT_NEAR(Graph().xAxis->range().lower, 0, 0.5);
  EXPECT_NEAR(Graph().xAxis->range().upper, 399, 0.5);
  EXPECT_GT(Graph().yAxis->range().upper, 400 * 1.41);
  EXPECT_LT(Graph().yAxis->range().upper, 400 * 1.41 * 1.2);
  for (int i = 0; i < 8; ++i) EXPECT_EQ(Graph().graph(i)->dataCount(), 400);
  EXPECT_EQ(Graph().graph(1)->pen().color(), QColor(255, 0, 0));
  EXPECT_EQ(Graph().graph(6)->pen().color(), QColor(0, 255, 255));
}

TEST_F(Waveforms, ADragPans) {
  ShowBlock();
  const QCPRange x = Graph().xAxis->range();
  const QCPRange y = Graph().yAxis->range();

  Drag(Middle(), Middle() + QPoint(80, 40));

  EXPECT_LT(Graph().xAxis->range().lower, x.lower);
  EXPECT_NEAR(Graph().xAxis->range().size(), x.size(), 1e-6);
  EXPECT_GT(Graph().yAxis->range().upper, y.upper);
}

TEST_F(Waveforms, ARectangleZoomsOnceAndThenDragsPanAgain) {
  ShowBlock();
  const QCPRange x = Graph().xAxis->range();
  Click("sevOption1(1)");

  Drag(Middle() - QPoint(100, 80), Middle() + QPoint(100, 80));

  const QCPRange zoomed = Graph().xAxis->range();
  EXPECT_LT(zoomed.size(), x.size() / 2);
  ASSERT_TRUE(WaitFor([this] { return Form().sevOption1[0].Value.Get(); }));

  Drag(Middle(), Middle() + QPoint(60, 0));

  EXPECT_NEAR(Graph().xAxis->range().size(), zoomed.size(), 1e-6);
  EXPECT_LT(Graph().xAxis->range().lower, zoomed.lower);
}

TEST_F(Waveforms, AClickInZoomModeIsNoZoom) {
  ShowBlock();
  const QCPRange x = Graph().xAxis->range();
  Click("sevOption1(1)");

  QTest::mouseClick(&Graph(), Qt::LeftButton, {}, Middle());
  QTest::mouseClick(&Graph(), Qt::RightButton, {}, Middle());
  QTest::qWait(20);

  EXPECT_EQ(Graph().xAxis->range().size(), x.size());
  EXPECT_TRUE(Form().sevOption1[1].Value);
}

TEST_F(Waveforms, ADoubleClickScalesToTheBlock) {
  ShowBlock();
  const QCPRange x = Graph().xAxis->range();
  Drag(Middle(), Middle() + QPoint(200, 100));
  ASSERT_NE(Graph().xAxis->range().lower, x.lower);

  QTest::mouseDClick(&Graph(), Qt::LeftButton, {}, Middle());

  EXPECT_NEAR(Graph().xAxis->range().lower, x.lower, 1e-6);
  EXPECT_NEAR(Graph().xAxis->range().upper, x.upper, 1e-6);
}

TEST_F(Waveforms, TheRightButtonShowsTheSamplesAndThenTheLines) {
  ShowBlock();

  QTest::mouseClick(&Graph(), Qt::RightButton, {}, Middle());
  EXPECT_EQ(Graph().graph(0)->lineStyle(), QCPGraph::lsNone);
  EXPECT_FALSE(Graph().graph(0)->scatterStyle().isNone());

  QTest::mouseClick(&Graph(), Qt::RightButton, {}, Middle());
  EXPECT_EQ(Graph().graph(0)->lineStyle(), QCPGraph::lsLine);
  EXPECT_TRUE(Graph().graph(0)->scatterStyle().isNone());
  EXPECT_EQ(Graph().graph(0)->pen().width(), 2);
}

TEST_F(Waveforms, UntickingTheCurrentsScalesToTheVoltagesAtOnce) {
  ShowBlock();

  for (int i = 0; i < 4; ++i) Click(Member("Check2", i));

  EXPECT_FALSE(Graph().graph(0)->visible());
  EXPECT_LT(Graph().yAxis->range().upper, 63.509 * 1.41 * 1.2);
  EXPECT_EQ(Program().Settings.SensorEnabled[3], 0);
}

TEST_F(Waveforms, UntickingRescalesDuringARunToo) {
  Start();
  GoMeasure();
  ClickTab(WaveformsTab);
  Click("CWButton1");
  ASSERT_TRUE(WaitFor([this] { return Program().State.BlockCount > 0; }));

  for (int i = 0; i < 4; ++i) Click(Member("Check2", i));

  EXPECT_TRUE(Program().State.LookingForScope);
  EXPECT_LT(Graph().yAxis->range().upper, 63.509 * 1.41 * 1.2);
}

TEST_F(Waveforms, AutoscalingUndoesADragWithTheNextBlock) {
  Start();
  GoMeasure();
  ClickTab(WaveformsTab);
  Click("CWButton1");
  ASSERT_TRUE(WaitFor([this] { return Program().State.BlockCount > 0; }));
  Click("sevOption1(2)");
  Drag(Middle(), Middle() + QPoint(200, 0));

  const auto before = Program().State.BlockCount;
  ASSERT_TRUE(WaitFor([&] { return Program().State.BlockCount > before + 1; }));

  EXPECT_NEAR(Graph().xAxis->range().lower, 0, 0.5);
}

}  // namespace
}  // namespace desktop
