#include <qcustomplot.h>

#include "desktop/binding/graph_view.h"
#include "desktop/look/look.h"
#include "desktop/widgets/curve_name.h"
#include "fit_check.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// The quick view of a finished recording, as the program gives it to the page.
class QuickViewPage : public WindowScene {
 protected:
  /// Each curve has these points, a step above those of the one before; the axis ends at the last.
  void Show(const std::vector<double>& points) {
    Start();
    ClickTab(forms::tab::Recorder);
    platform::CWGraph& graph = Form().CWGraph2;
    double step = 0;
    for (platform::Plot& plot : graph.Plots) {
      std::vector<double> y = points;
      for (double& value : y) value += step;
      step += 50;
      plot.Y = std::move(y);
      plot.PointStyle = points.size() > 1 ? std::int16_t{0} : platform::CWGraph::SampleMarker;
    }
    graph.XAxis.Caption = std::string("x * 400 samples; ");
    graph.XAxis.Minimum = 0;
    graph.XAxis.Maximum = static_cast<double>(points.size() - 1);
    graph.SecondsPerPoint = 0.1;
    graph.YAxis.ScaleNow();
    graph.Visible = true;
    QTest::qWait(80);
  }
  GraphView& Graph() { return Find<GraphView>("CWGraph2"); }
  QList<CurveName*> Names() { return Find<QWidget>("Legend").findChildren<CurveName*>(); }
};

/// How many pixels of a picture have a colour.
int Pixels(const QImage& image, const QColor& colour) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == colour ? 1 : 0;
  }
  return count;
}

TEST_F(QuickViewPage, ShowsOnePointAlone) {
  Show({400});
  // Colours that nothing else on a graph has.
  for (const std::size_t curve : {1U, 2U, 4U, 5U, 6U}) {
    const QColor colour = look::ColourOf(Form().CWGraph2.Plots[curve].LineColor);
    EXPECT_GT(Pixels(Graph().grab().toImage(), colour), 2) << curve;
  }

  for (platform::Plot& plot : Form().CWGraph2.Plots) plot.PointStyle = std::int16_t{0};
  QTest::qWait(80);
  EXPECT_EQ(Pixels(Graph().grab().toImage(), QColor(255, 0, 0)), 0) << "the marker is what shows";
}

TEST_F(QuickViewPage, ADoubleClickShowsNothingBehindTheLastGroup) {
  Show({390, 400, 410});
  QTest::mouseDClick(&Graph(), Qt::LeftButton, Qt::NoModifier, Graph().rect().center());
  EXPECT_EQ(Graph().xAxis->range().lower, 0);
  EXPECT_EQ(Graph().xAxis->range().upper, 2);
  EXPECT_GT(Graph().yAxis->range().lower, 300);
}

TEST_F(QuickViewPage, BeginsAtZeroWhereverTheOneBeforeWasPannedTo) {
  Show({400, 300, 400});
  Graph().xAxis->setRange(-20, -10);

  Form().CWGraph2.XAxis.Minimum = 0;
  Form().CWGraph2.XAxis.Maximum = 7;

  EXPECT_EQ(Graph().xAxis->range(), QCPRange(0, 7));
}

TEST_F(QuickViewPage, NamesEachCurveWithItsUnitInItsColour) {
  Show({390, 400, 410});
  ASSERT_EQ(Names().size(), 8);
  for (std::size_t i = 0; i < 8; ++i) {
    CurveName& name = *Names()[static_cast<int>(i)];
    EXPECT_EQ(name.text().toStdString(),
              Program().Config.Settings.ChannelName[i] + (i < 4 ? " / [A]" : " / [kV]"));
    const QColor colour = look::ColourOf(Form().CWGraph2.Plots[i].LineColor);
    EXPECT_GE(Pixels(name.grab().toImage(), colour), 40) << i;
    EXPECT_LE(name.fontMetrics().horizontalAdvance(name.text()), name.width() - 30) << i;
  }
  EXPECT_EQ(tour::Misfits(program_->Window()), QStringList());
}

TEST_F(QuickViewPage, FollowsTheUnitsAndTheNamesOfTheSetupView) {
  Show({390, 400, 410});
  Form().Combo4[0].ListIndex = 1;
  Form().Text1[forms::setup_field::FirstName].Text = std::string("Feeder & line");
  EXPECT_EQ(Names()[0]->text(), "Feeder & line / [mA]");
}

TEST_F(QuickViewPage, ShowsItsLegendOnlyBesideTheGraph) {
  Show({390, 400, 410});
  EXPECT_TRUE(Find<QWidget>("Legend").isVisible());
  const QRect graph = Graph().geometry();
  Form().CWGraph2.Visible = false;
  QTest::qWait(30);
  EXPECT_FALSE(Find<QWidget>("Legend").isVisible());
  EXPECT_EQ(Graph().geometry(), graph);
}

TEST_F(QuickViewPage, TellsTheTimeOnASecondScale) {
  Show(std::vector<double>(21, 400));
  QCPAxis& time = *Graph().xAxis2;
  EXPECT_TRUE(time.visible());
  EXPECT_EQ(time.range().lower, 0);
  EXPECT_DOUBLE_EQ(time.range().upper, 2);
  Graph().replot();
  EXPECT_TRUE(time.tickVectorLabels().contains("1 s"))
      << time.tickVectorLabels().join("|").toStdString();

  Graph().xAxis->setRange(-10, 10);
  EXPECT_DOUBLE_EQ(time.range().lower, -1) << "it follows the mouse";
  Graph().replot();
  EXPECT_FALSE(time.tickVectorLabels().join("|").contains("-"));
  Graph().xAxis->setRange(0, 5);
  Graph().replot();
  EXPECT_TRUE(time.tickVectorLabels().contains("200 ms")) << "within less than a second";
}

}  // namespace
}  // namespace desktop
