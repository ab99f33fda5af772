#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/widgets/run_indicator.h"
#include "fit_check.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// Every view shows all of itself, in windows of every size.
class Fit : public WindowScene, public testing::WithParamInterface<QSize> {
 protected:
  void ExpectNoMisfits(const QString& where) {
    for (const QString& misfit : tour::Misfits(program_->Window())) {
      ADD_FAILURE() << where.toStdString() << ": " << misfit.toStdString();
    }
  }
};

TEST_P(Fit, NothingIsCutCoveredOrOutOfSight) {
  Start();
  Form().Text1[12].Text = "VORNIK-SIM-1";
  Form().Text1[14].Text = "VORNIK-SIM-2";
  ResizeFrame(GetParam());
  for (int tab = forms::tab::Info; tab < forms::tab::Exit; ++tab) {
    ClickTab(tab);
    QTest::qWait(30);
    ExpectNoMisfits(QString("tab %1").arg(tab));
  }
}

TEST_P(Fit, ARecordingThatIsNotStoredSaysSoUncut) {
  Start();
  ResizeFrame(GetParam());
  ClickTab(forms::tab::Recorder);
  for (auto& stored : Form().OnDisk) {
    stored.Caption =
        "stream 1: 86,400 whole rings, 26,697,600 kB on disk, 120 more being written to the disk";
  }
  Form().Label10[forms::record_line::Progress].Caption = "86400.9s / 345603600 samples";
  Form().Room.Caption = "free: 12,345.6 GB, enough for 12,345 h";
  Form().NotStored.Say(
      "stream 1: stored again since 21 Nov 2026 18:15:57; 86,400 rings lost: Path/File access "
      "error. "
      "Log and quick view are left out: Path/File access error.");
  // The texts come to their labels with the next painting; a busy computer lays out later.
  ASSERT_TRUE(WaitFor([this] { return !Find<QLabel>("Room").text().isEmpty(); }));
  (void)WaitFor([this] { return tour::Misfits(program_->Window()).isEmpty(); });
  const auto& line = Find<QWidget>("NotStored");
  const QRect words =
      line.fontMetrics().boundingRect(QRect(0, 0, line.width(), 1000), Qt::TextWordWrap,
                                      QString::fromStdString(Form().NotStored.Caption));
  EXPECT_GE(line.height(), words.height());
  ExpectNoMisfits("Recorder");
}

TEST_P(Fit, TheWordsOfALongAnalysisStandBesideItsCounterUncut) {
  Start();
  ResizeFrame(GetParam());
  ClickTab(forms::tab::Recorder);
  auto& progress = Form().Label10[forms::record_line::Progress];
  progress.Caption = "86400.9s / 345603600 samples; please keep patient, analysis running...";
  progress.FontBold = true;
  ASSERT_TRUE(
      WaitFor([this] { return Find<QLabel>(Member("Label10", 3)).text().endsWith("running..."); }));
  QTest::qWait(30);
  ExpectNoMisfits("Recorder");
}

TEST_P(Fit, ARecordingThatCanBeCheckedIsNamedUncut) {
  Start();
  ResizeFrame(GetParam());
  ClickTab(forms::tab::Recorder);
  Form().Command9.Visible = true;
  Form().CheckRecording.Caption = "&Check recording";
  Form().CheckRecording.Visible = true;
  Form().CheckLine.Say(
      "1_SV record 30.12.2026 18-15-57.txt and 2_SV record 30.12.2026 18-15-57.txt of 30 Dec 2026 "
      "18:15:57 have no log.");
  ASSERT_TRUE(WaitFor([this] { return !Find<QLabel>("CheckLine").text().isEmpty(); }));
  (void)WaitFor([this] { return tour::Misfits(program_->Window()).isEmpty(); });
  const auto& line = Find<QWidget>("CheckLine");
  const QRect words =
      line.fontMetrics().boundingRect(QRect(0, 0, line.width(), 1000), Qt::TextWordWrap,
                                      QString::fromStdString(Form().CheckLine.Caption));
  EXPECT_GE(line.height(), words.height());
  ExpectNoMisfits("Recorder");
}

TEST_P(Fit, TheLongestMagnitudeStandsUncutInTheTable) {
  Start();
  ResizeFrame(GetParam());
  ClickTab(forms::tab::Phasor);
  for (std::size_t row = 1; row <= 8; ++row) {
    Form().Grid1.Cell[row][1] = "63,509,000.0000";
    Form().Grid1.Cell[row][2] = "-179.999";
  }
  QTest::qWait(30);
  ExpectNoMisfits("Phasor");
}

INSTANTIATE_TEST_SUITE_P(OfTheWindow, Fit,
                         testing::Values(QSize(1024, 768), QSize(1366, 768), QSize(1280, 1024),
                                         QSize(1920, 1080), QSize(2560, 1440), QSize(3840, 2160)),
                         NameOfSize);

class Scaling : public WindowScene {};

TEST_F(Scaling, TextsFieldsButtonsTheStripAndTheStatusBarGrowAlike) {
  Start();
  const QStringList names = {"Text1(0)", "Combo1", "CWButton4", "CWButton2", "Command7"};
  const auto heights = [&] {
    // A view that is not shown is laid out when it is.
    for (int tab = forms::tab::Info; tab < forms::tab::Exit; ++tab) {
      ClickTab(tab);
      QTest::qWait(10);
    }
    std::vector<double> all;
    for (const QString& name : names) all.push_back(Find<QWidget>(name).height());
    all.push_back(Find<QWidget>("StatusBar1").height());
    all.push_back(QApplication::font().pixelSize());
    return all;
  };
  ResizeFrame({1024, 768});
  const std::vector<double> small = heights();
  ResizeFrame({1920, 1080});
  const std::vector<double> large = heights();
  ASSERT_GT(look::Scale(), 1.3);
  for (std::size_t i = 0; i < small.size(); ++i) {
    EXPECT_NEAR(large[i] / small[i], look::Scale(), 0.08) << i;
  }

  ResizeFrame({1024, 768});
  EXPECT_EQ(heights(), small);
}

TEST_F(Scaling, TheProgressOfARecordingGrowsWithItsPage) {
  Start();
  ClickTab(forms::tab::Recorder);
  ResizeFrame({1920, 1080});
  ClickTab(forms::tab::Recorder);
  QTest::qWait(30);
  EXPECT_EQ(Find<QWidget>("Label10(3)").fontInfo().pixelSize(), QApplication::font().pixelSize());
}

TEST_F(Scaling, TheRunButtonIsOneSizeOnAllViews) {
  Start();
  for (const QSize size : {QSize(1024, 768), QSize(1920, 1080)}) {
    ResizeFrame(size);
    for (int tab = 2; tab <= 6; ++tab) {
      ClickTab(tab);
      QTest::qWait(10);
    }
    const QSize first = Find<QWidget>("CWButton4").size();
    for (const char* name : {"CWButton1", "CWButton2", "CWButton3", "Command2"}) {
      EXPECT_EQ(Find<QWidget>(name).size(), first) << name;
    }
  }
}

TEST_F(Scaling, TheLightOfARunFillsWhatItReachesOutBeyondItsButton) {
  Start();
  for (const QSize size : {QSize(1024, 768), QSize(1920, 1080)}) {
    ResizeFrame(size);
    ClickTab(forms::tab::Values);
    QTest::qWait(10);
    auto& indicator = Find<QWidget>("Shape12(0)");
    QImage light(indicator.size(), QImage::Format_ARGB32_Premultiplied);
    light.fill(Qt::transparent);
    indicator.render(&light, {}, {}, {});
    const int reach = look::Scaled(RunIndicator::Reach);
    int lit = 0;
    for (int x = 0; x < reach; ++x) {
      if (light.pixelColor(x, light.height() / 2).alpha() > 0) ++lit;
    }
    EXPECT_GE(lit, 0.75 * reach) << size.width();
  }
}

TEST_F(Scaling, FollowsTheSmallerSideByWholePixelsOfTheText) {
  EXPECT_EQ(look::ScaleFor({1024, 768}), 1);
  EXPECT_EQ(look::ScaleFor({800, 600}), 1);
  EXPECT_EQ(look::ScaleFor({4000, 768}), 1);
  EXPECT_DOUBLE_EQ(look::ScaleFor({1920, 1080}), 18.0 / look::TextSize);
  EXPECT_EQ(look::ScaleFor({100000, 100000}), 2);
}

}  // namespace
}  // namespace desktop
