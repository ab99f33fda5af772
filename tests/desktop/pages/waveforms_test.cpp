#include <QFontMetricsF>
#include <QImage>
#include <algorithm>

#include "desktop/look/look.h"
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
  EXPECT_EQ(Program().Config.Settings.SensorEnabled[3], 0);
}

TEST_F(Waveforms, UntickingRescalesDuringARunToo) {
  RunToABlock();

  for (int i = 0; i < 4; ++i) Click(Member("Check2", i));

  EXPECT_TRUE(Program().Acquisition.State.LookingForScope);
  EXPECT_LT(Y().upper, 63.509 * 1.41 * 1.2);
}

TEST_F(Waveforms, AnAmpersandInAChannelsNameIsALetterOfItsLegend) {
  GoWaveforms();
  auto& legend = Find<QAbstractButton>(Member("Check2", 0));
  // How far the words of the legend reach, in pixels of their colour.
  const auto end = [&](const char* name) {
    Form().Text1[4].Text = name;
    const QImage picture = legend.grab().toImage();
    int last = 0;
    for (int x = 0; x < picture.width(); ++x) {
      for (int y = 0; y < picture.height(); ++y) {
        if (picture.pixelColor(x, y).lightness() <= 128) last = std::max(last, x);
      }
    }
    return last;
  };
  const double ampersand = QFontMetricsF(legend.font()).horizontalAdvance("&");

  EXPECT_NEAR(end("B&V") - end("BV"), ampersand, 2);
  Form().Text1[4].Text = "B&V";
  EXPECT_TRUE(legend.shortcut().isEmpty()) << legend.shortcut().toString().toStdString();
  QTest::keyClick(&program_->Window(), Qt::Key_V, Qt::AltModifier);
  EXPECT_TRUE(legend.isChecked());
  EXPECT_EQ(Form().TabStrip1.SelectedTab, forms::tab::Values);
}

TEST_F(Waveforms, TheLegendNamesItsCurveBesideASwatchOfItsColour) {
  GoWaveforms();
  const QColor colours[] = {{0, 0, 0},   {255, 0, 0},   {0, 0, 255},   {96, 96, 96},
                            {0, 255, 0}, {255, 0, 255}, {0, 255, 255}, {128, 128, 128}};
  for (int i = 0; i < 8; ++i) {
    auto& legend = Find<QAbstractButton>(Member("Check2", i));
    const QImage picture = legend.grab().toImage();
    int swatch = 0;
    int ink = 0;
    for (int x = 20; x < picture.width(); ++x) {
      if (picture.pixelColor(x, picture.height() / 2) == colours[i]) ++swatch;
      for (int y = 0; y < picture.height(); ++y) {
        if (x > 60 && picture.pixelColor(x, y) == look::Ink) ++ink;
      }
    }
    EXPECT_GE(swatch, 20) << i;
    EXPECT_GT(ink, 10) << i;
  }
}

TEST_F(Waveforms, TheSamplesHaveTheColoursOfTheirMarkers) {
  ShowBlock();
  RightClick();

  const QColor colours[] = {{0, 0, 0},   {255, 0, 0},   {0, 0, 255},   {192, 192, 192},
                            {0, 255, 0}, {255, 0, 255}, {0, 255, 255}, {128, 128, 128}};
  for (int i = 0; i < 8; ++i) {
    EXPECT_EQ(Graph().graph(i)->scatterStyle().brush().color(), colours[i]) << i;
  }
  // The curve of the neutral current is darker than its samples.
  EXPECT_EQ(Graph().graph(3)->pen().color(), QColor(96, 96, 96));
}

TEST_F(Waveforms, TheGraphHasItsPaperOnTheScreenAndPlainWhiteInPrint) {
  GoWaveforms();
  const auto foot = [this] {
    return Graph().grab().toImage().pixelColor(Graph().axisRect()->bottomLeft() + QPoint(7, -7));
  };
  EXPECT_NE(foot(), QColor(Qt::white));
  EXPECT_GT(foot().lightness(), 230);

  Form().CWGraph1.ScreenLook = false;

  EXPECT_TRUE(WaitFor([&] { return foot() == QColor(Qt::white); }));
}

TEST_F(Waveforms, ABlockIsDrawnOnce) {
  RunToABlock();
  int drawn = 0;
  QObject::connect(&Graph(), &QCustomPlot::afterReplot, &Graph(), [&] { ++drawn; });
  QTest::qWait(100);
  drawn = 0;
  auto before = Program().Acquisition.State.BlockCount;
  WaitForTwoBlocks();
  EXPECT_EQ(drawn, Program().Acquisition.State.BlockCount - before);

  Click("sevOption1(2)");
  QTest::qWait(100);
  drawn = 0;
  before = Program().Acquisition.State.BlockCount;
  WaitForTwoBlocks();
  EXPECT_EQ(drawn, Program().Acquisition.State.BlockCount - before);
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
  ClickTab(forms::tab::Setup);
  Type(Member("Text1", 0), "and nonsense here");
  ClickTab(forms::tab::Waveforms);
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
