#include <QFontMetricsF>
#include <QImage>
#include <algorithm>

#include "waveforms_scene.h"

namespace desktop {
namespace {

using Waveforms = WaveformsScene;

TEST_F(Waveforms, ShowTheBlockOverItsSamples) {
  ShowBlock();

  EXPECT_NEAR(X().lower, 0, 0.5);
  EXPECT_NEAR(X().upper, 399, 0.5);
  EXPECT_GT(Y().upper, 400 * 1.41);
  EXPECT_LT(Y().upper, 400 * 1.41 * 1.2);
  for (int i = 0; i < 8; ++i) EXPECT_EQ(Graph().graph(i)->dataCount(), 400);
  EXPECT_EQ(Graph().graph(1)->pen().color(), QColor(255, 0, 0));
  EXPECT_EQ(Graph().graph(6)->pen().color(), QColor(0, 255, 255));
}

TEST_F(Waveforms, ADragPans) {
  ShowBlock();
  const QCPRange x = X();
  const QCPRange y = Y();

  Drag(Middle(), Middle() + QPoint(80, 40));

  EXPECT_LT(X().lower, x.lower);
  EXPECT_NEAR(X().size(), x.size(), 1e-6);
  EXPECT_GT(Y().upper, y.upper);
}

TEST_F(Waveforms, TheRightButtonShowsTheSamplesAndThenTheLines) {
  ShowBlock();

  RightClick();
  EXPECT_EQ(Graph().graph(0)->lineStyle(), QCPGraph::lsNone);
  EXPECT_FALSE(Graph().graph(0)->scatterStyle().isNone());

  RightClick();
  EXPECT_EQ(Graph().graph(0)->lineStyle(), QCPGraph::lsLine);
  EXPECT_TRUE(Graph().graph(0)->scatterStyle().isNone());
  EXPECT_EQ(Graph().graph(0)->pen().width(), 2);
}

TEST_F(Waveforms, TwoQuickPressesOfTheRightButtonAreTwoPresses) {
  ShowBlock();
  const QCPRange x = X();
  Drag(Middle(), Middle() + QPoint(80, 0));
  const QCPRange panned = X();

  // The second press of a quick pair arrives as a double click.
  RightClick();
  QTest::mouseDClick(&Graph(), Qt::RightButton, {}, Middle());

  EXPECT_EQ(Graph().graph(0)->lineStyle(), QCPGraph::lsLine);
  EXPECT_TRUE(Graph().graph(0)->scatterStyle().isNone());
  EXPECT_EQ(X().lower, panned.lower);
  EXPECT_NE(X().lower, x.lower);

  RightClick();
  EXPECT_EQ(Graph().graph(0)->lineStyle(), QCPGraph::lsNone);
}

TEST_F(Waveforms, UntickingTheCurrentsScalesToTheVoltagesAtOnce) {
  ShowBlock();

  for (int i = 0; i < 4; ++i) Click(Member("Check2", i));

  EXPECT_FALSE(Graph().graph(0)->visible());
  EXPECT_LT(Y().upper, 63.509 * 1.41 * 1.2);
  EXPECT_EQ(Program().Settings.SensorEnabled[3], 0);
}

TEST_F(Waveforms, UntickingRescalesDuringARunToo) {
  RunToABlock();

  for (int i = 0; i < 4; ++i) Click(Member("Check2", i));

  EXPECT_TRUE(Program().State.LookingForScope);
  EXPECT_LT(Y().upper, 63.509 * 1.41 * 1.2);
}

TEST_F(Waveforms, AnAmpersandInAChannelsNameIsALetterOfItsLegend) {
  GoWaveforms();
  auto& legend = Find<QAbstractButton>(Member("Check2", 0));
  constexpr int Box = 20;
  // How wide the words of the legend stand on the screen, in pixels of their colour.
  const auto shown = [&](const char* name) {
    Form().Text1[4].Text = name;
    const QImage picture = legend.grab().toImage();
    int first = picture.width();
    int last = 0;
    for (int x = Box; x < picture.width(); ++x) {
      for (int y = 0; y < picture.height(); ++y) {
        if (picture.pixelColor(x, y).lightness() > 128) continue;
        first = std::min(first, x);
        last = std::max(last, x);
      }
    }
    return last - first + 1;
  };
  const auto wanted = [&](const char* text) {
    return QFontMetricsF(legend.font()).tightBoundingRect(text).width();
  };

  const int width = shown("B&V");

  EXPECT_NEAR(width, wanted("B&V"), 2);
  EXPECT_GT(width, shown("BV") + wanted("&") / 2);
  Form().Text1[4].Text = "B&V";
  EXPECT_TRUE(legend.shortcut().isEmpty()) << legend.shortcut().toString().toStdString();
  QTest::keyClick(&program_->Window(), Qt::Key_V, Qt::AltModifier);
  EXPECT_TRUE(legend.isChecked());
  EXPECT_EQ(Form().TabStrip1.SelectedTab, ValuesTab);
}

TEST_F(Waveforms, TheSamplesHaveTheColoursOfTheirMarkers) {
  ShowBlock();
  RightClick();

  const QColor colours[] = {{0, 0, 0},   {255, 0, 0},   {0, 0, 255},   {192, 192, 192},
                            {0, 255, 0}, {255, 0, 255}, {0, 255, 255}, {128, 128, 128}};
  for (int i = 0; i < 8; ++i) {
    const QCPScatterStyle marker = Graph().graph(i)->scatterStyle();
    EXPECT_EQ(marker.pen().color(), colours[i]) << i;
    EXPECT_EQ(marker.brush().color(), colours[i]) << i;
  }
  // The curve of the neutral current is darker than its samples.
  EXPECT_EQ(Graph().graph(3)->pen().color(), QColor(96, 96, 96));
}

TEST_F(Waveforms, TheGraphStandsOnAGroundThatIsNeitherWhiteNorBlack) {
  GoWaveforms();
  const auto ground = [this] {
    return Graph().grab().toImage().pixelColor(Graph().axisRect()->topLeft() + QPoint(7, 7));
  };
  const QColor sand = ground();
  EXPECT_GT(sand.lightness(), 128);
  EXPECT_LT(sand.lightness(), 230);
  EXPECT_GT(sand.red(), sand.blue());

  Form().CWGraph1.ScreenLook = false;

  EXPECT_TRUE(WaitFor([&] { return ground() == QColor(Qt::white); }));
}

TEST_F(Waveforms, ABlockIsDrawnOnce) {
  RunToABlock();
  int drawn = 0;
  QObject::connect(&Graph(), &QCustomPlot::afterReplot, &Graph(), [&] { ++drawn; });
  QTest::qWait(100);
  drawn = 0;
  auto before = Program().State.BlockCount;
  WaitForTwoBlocks();
  EXPECT_EQ(drawn, Program().State.BlockCount - before);

  Click("sevOption1(2)");
  QTest::qWait(100);
  drawn = 0;
  before = Program().State.BlockCount;
  WaitForTwoBlocks();
  EXPECT_EQ(drawn, Program().State.BlockCount - before);
}

TEST_F(Waveforms, AChannelThatIsSwitchedOffIsDrawnOnceWithItsNewScale) {
  ShowBlock();
  for (int i = 1; i < 4; ++i) Click(Member("Check2", i));
  QTest::qWait(100);
  std::vector<double> tops;
  QObject::connect(&Graph(), &QCustomPlot::afterReplot, &Graph(),
                   [&] { tops.push_back(Y().upper); });

  Click(Member("Check2", 0));

  QTest::qWait(100);
  ASSERT_EQ(tops.size(), 1U);
  EXPECT_LT(tops[0], 63.509 * 1.41 * 1.2);
}

TEST_F(Waveforms, ARefusedFilterIsToldAndGivesTheButtonsBack) {
  Start();
  ClickTab(SetupTab);
  Type(Member("Text1", 0), "and nonsense here");
  ClickTab(WaveformsTab);
  QString text;
  OnDialog([&](QDialog& dialog) {
    text = dialog.property("text").toString();
    dialog.accept();
  });

  Click("CWButton1");

  EXPECT_TRUE(text.startsWith("Can't receive packets!")) << text.toStdString();
  EXPECT_EQ(Find<QAbstractButton>("CWButton1").text(), "RUN");
  EXPECT_TRUE(Find<QWidget>("CWButton1").isEnabled());
  EXPECT_TRUE(Find<QWidget>("Command1").isEnabled());
  EXPECT_FALSE(Find<QWidget>(Member("Shape12", 2)).isVisible());
}

}  // namespace
}  // namespace desktop
