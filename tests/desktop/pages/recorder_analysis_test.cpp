#include <qcustomplot.h>

#include <QProgressBar>

#include "desktop/binding/graph_view.h"
#include "desktop/widgets/click_label.h"
#include "paintings.h"
#include "window_scene.h"

namespace desktop {
namespace {

class RecorderAnalysis : public WindowScene {
 protected:
  void StartAtRecorder() {
    Start();
    ClickTab(forms::tab::Recorder);
  }
};

TEST_F(RecorderAnalysis, ADoubleClickReachesEachLineOfTheRecording) {
  StartAtRecorder();
  for (int i = 0; i < 5; ++i) {
    int clicks = 0;
    Form().Label10[static_cast<std::size_t>(i)].DblClick = [&] { ++clicks; };
    auto& line = Find<ClickLabel>(Member("Label10", i));
    QTest::mouseDClick(&line, Qt::RightButton);
    EXPECT_EQ(clicks, 0) << i;
    QTest::mouseDClick(&line, Qt::LeftButton);
    EXPECT_EQ(clicks, 1) << i;
  }
}

TEST_F(RecorderAnalysis, TheBarIsPaintedAtOnceWithoutAnEventOfTheQueue) {
  StartAtRecorder();
  auto& bar = Find<QProgressBar>("ProgressBar1");
  EXPECT_FALSE(bar.isVisible());
  Paintings paintings(bar);
  bool handled = false;
  QTimer::singleShot(0, &bar, [&] { handled = true; });

  Form().ProgressBar1.Visible = true;
  Form().ProgressBar1.Value = 40;
  Form().ProgressBar1.Repaint();

  EXPECT_EQ(bar.value(), 40);
  EXPECT_GT(paintings.Count, 0);
  EXPECT_FALSE(handled);
  EXPECT_GT(bar.width(), 100);
}

TEST_F(RecorderAnalysis, TheBarKeepsItsRoom) {
  StartAtRecorder();
  QTest::qWait(50);
  const QRect before = Find<GraphView>("CWGraph2").geometry();
  Form().ProgressBar1.Visible = true;
  QTest::qWait(50);
  EXPECT_EQ(Find<GraphView>("CWGraph2").geometry(), before);
}

TEST_F(RecorderAnalysis, TheGraphShowsTheWordsAndTheEndsOfItsAxis) {
  StartAtRecorder();
  auto& graph = Find<GraphView>("CWGraph2");
  EXPECT_EQ(graph.xAxis->label(), "x * 4000 samples");

  Form().CWGraph2.XAxis.Caption = std::string("x * 400 samples; ");
  Form().CWGraph2.XAxis.Minimum = 0;
  Form().CWGraph2.XAxis.Maximum = 19.5;

  EXPECT_EQ(graph.xAxis->label(), "x * 400 samples; ");
  EXPECT_EQ(graph.xAxis->range().lower, 0);
  EXPECT_EQ(graph.xAxis->range().upper, 19.5);
}

TEST_F(RecorderAnalysis, AnAxisOfOnePointHasALengthAllTheSame) {
  StartAtRecorder();
  Form().CWGraph2.XAxis.Minimum = 0;
  Form().CWGraph2.XAxis.Maximum = -0.5;
  const QCPRange range = Find<GraphView>("CWGraph2").xAxis->range();
  EXPECT_LT(range.lower, 0);
  EXPECT_GT(range.upper, 0);
}

TEST_F(RecorderAnalysis, TheQuickViewHasTheColoursOfTheScope) {
  StartAtRecorder();
  for (std::size_t i = 0; i < 8; ++i) {
    EXPECT_EQ(Form().CWGraph2.Plots[i].LineColor, Form().CWGraph1.Plots[i].LineColor.Get()) << i;
    EXPECT_EQ(Form().CWGraph2.Plots[i].PointColor, Form().CWGraph2.Plots[i].LineColor.Get()) << i;
  }
}

}  // namespace
}  // namespace desktop
