#include "recorder/reading/quick_view.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>

#include "recorder/reading/analysis_scene.h"
#include "support/failures.h"

namespace support {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using ViewScene = AnalysisScene;

/// A line whose eight values are `value` and the seven numbers behind it.
std::string Line(double value) {
  std::string line = "0;0";
  for (int channel = 0; channel < 8; ++channel) {
    line += ';' + platform::NumberText().General(value + channel);
  }
  return line + "\r\n";
}

std::string Lines(int count, double value) {
  std::string text;
  for (int i = 0; i < count; ++i) text += Line(value);
  return text;
}

const std::vector<double>& Points(const ViewScene& scene, std::size_t channel = 0) {
  return scene.Recorder.CWGraph2.Plots[channel].Y;
}

TEST(QuickViewScene, ShowsTheRootMeanSquareOfEachGroup) {
  ViewScene scene;
  scene.Present.BaseSamples = 2;
  scene.Recorded(Line(3) + Line(-3) + Line(1) + Line(7));
  scene.Recorder.CWGraph2.Visible = false;

  scene.Analysis.ViewRecording();

  EXPECT_THAT(Points(scene), ElementsAre(3, 5));
  // -3 and the channel's 7 more.
  EXPECT_THAT(Points(scene, 7), ElementsAre(static_cast<float>(std::sqrt((100.0 + 16) / 2)),
                                            static_cast<float>(std::sqrt((64.0 + 196) / 2))));
  EXPECT_TRUE(scene.Recorder.CWGraph2.Visible);
}

TEST(QuickViewScene, KeepsTheRowsOfTheGroupBeforeBehindALastOneThatIsNotFull) {
  ViewScene scene;
  scene.Present.BaseSamples = 4;
  scene.Recorded(Lines(4, 2) + Lines(1, 4));
  scene.Analysis.ViewRecording();
  EXPECT_THAT(Points(scene), ElementsAre(2, static_cast<float>(std::sqrt((16 + 3 * 4) / 4.0))));
}

TEST(QuickViewScene, KeepsNothingOfTheRecordingBefore) {
  ViewScene scene;
  scene.Present.BaseSamples = 4;
  scene.Recorded(Lines(4, 2));
  scene.Analysis.ViewRecording();
  scene.Recorded(Lines(1, 4));
  scene.Analysis.ViewRecording();
  EXPECT_THAT(Points(scene), ElementsAre(2));
}

TEST(QuickViewScene, ReadsALastLineWithoutAnEnd) {
  ViewScene scene;
  scene.Present.BaseSamples = 2;
  scene.Recorded(Lines(2, 1) + "2;2;9;9;9;9;9;9;9;9");
  scene.Analysis.ViewRecording();
  EXPECT_THAT(Points(scene), ElementsAre(1, static_cast<float>(std::sqrt((81 + 1) / 2.0))));
}

TEST(QuickViewScene, ReadsALineThatADiskFilledUpIn) {
  ViewScene scene;
  scene.Present.BaseSamples = 1;
  scene.Recorded(Lines(1, 1) + "1;1;4;5");
  scene.Analysis.ViewRecording();
  EXPECT_THAT(Points(scene, 1), ElementsAre(2, 5));
  EXPECT_THAT(Points(scene, 2), ElementsAre(3, 0));
}

TEST(QuickViewScene, HasNoPointBehindTheLastGroup) {
  for (const auto& [lines, points] : std::vector<std::pair<int, std::size_t>>{
           {1, 1}, {4, 1}, {5, 1}, {9, 1}, {10, 1}, {11, 2}, {14, 2}, {15, 2}, {20, 2}, {21, 3}}) {
    ViewScene scene;
    scene.Present.BaseSamples = 10;
    scene.Recorded(Lines(lines, 1));
    scene.Analysis.ViewRecording();
    EXPECT_THAT(Points(scene), SizeIs(points)) << lines;
  }
}

TEST(QuickViewScene, MarksAPointThatStandsAlone) {
  ViewScene scene;
  scene.Present.BaseSamples = 10;
  // The axis ends at the first point until the second group is half full.
  for (const auto& [lines, style] : std::vector<std::pair<int, std::int16_t>>{
           {1, 15}, {10, 15}, {14, 15}, {15, 0}, {20, 0}, {10, 15}, {200, 0}}) {
    scene.Recorded(Lines(lines, 1));
    scene.Analysis.ViewRecording();
    for (const platform::Plot& plot : scene.Recorder.CWGraph2.Plots)
      EXPECT_EQ(plot.PointStyle, style) << lines;
  }
}

TEST(QuickViewScene, TellsTheTimeFromPointToPoint) {
  ViewScene scene;
  scene.Recorded(Lines(400, 1));
  scene.Analysis.ViewRecording();
  EXPECT_DOUBLE_EQ(scene.Recorder.CWGraph2.SecondsPerPoint, 0.1);

  scene.Present.BaseSamples = 1000;
  scene.Settings.BaseFrequency = 60;
  scene.Analysis.ViewRecording();
  EXPECT_DOUBLE_EQ(scene.Recorder.CWGraph2.SecondsPerPoint, 1000.0 / 4800);

  scene.Settings.BaseFrequency = 0;
  scene.Analysis.ViewRecording();
  EXPECT_EQ(scene.Recorder.CWGraph2.SecondsPerPoint, 0) << "no time without a frequency";
}

TEST(QuickViewScene, NamesItsAxisAndEndsItAtTheLastGroupThatIsHalfFull) {
  ViewScene scene;
  EXPECT_EQ(scene.Recorder.CWGraph2.XAxis.Caption, "x * 4000 samples");
  scene.Recorder.CWGraph2.XAxis.Minimum = 3;
  scene.Recorded(Lines(1200, 1));
  scene.Analysis.ViewRecording();
  EXPECT_EQ(scene.Recorder.CWGraph2.XAxis.Caption, "x * 400 samples; ");
  EXPECT_EQ(scene.Recorder.CWGraph2.XAxis.Minimum, 0.0);
  EXPECT_EQ(scene.Recorder.CWGraph2.XAxis.Maximum, 2.0);

  scene.Recorded(Lines(1500, 1));
  scene.Analysis.ViewRecording();
  EXPECT_EQ(scene.Recorder.CWGraph2.XAxis.Maximum, 3.0) << "a group that is more than half full";
}

TEST(QuickViewScene, WithoutSamplesInAGroupIsAFailureThatNothingTakes) {
  ViewScene scene;
  scene.Present.BaseSamples = 0;
  scene.Recorded(Lines(4, 2));
  EXPECT_EQ(support::FailureOf([&] { scene.Analysis.ViewRecording(); }),
            platform::failure::DivisionByZero);
}

TEST(QuickViewScene, ScalesTheHeightToItsPointsBeforeItShows) {
  ViewScene scene;
  scene.Recorded(Lines(1, 1));
  platform::CWGraph& graph = scene.Recorder.CWGraph2;
  graph.Visible = false;
  int scalings = 0;
  graph.YAxis.ScaleNow = [&] {
    ++scalings;
    EXPECT_FALSE(graph.Visible);
    EXPECT_THAT(Points(scene, 7), SizeIs(1));
    EXPECT_EQ(graph.XAxis.Maximum, 0.0);
  };
  graph.XAxis.ScaleNow = [] { ADD_FAILURE() << "the time axis has its own ends"; };
  scene.Analysis.ViewRecording();
  EXPECT_EQ(scalings, 1);
  EXPECT_TRUE(graph.Visible);
}

TEST(QuickViewScene, AgreesWithAPlainSumOverRandomValues) {
  ViewScene scene;
  scene.Present.BaseSamples = 37;
  std::mt19937 random(8);
  std::normal_distribution<double> value(0, 400);
  std::string text;
  std::vector<std::array<float, 8>> rows;
  for (int i = 0; i < 37 * 20; ++i) {
    text += std::to_string(i) + ';' + std::to_string(i % 4000);
    for (float& cell : rows.emplace_back()) {
      const std::string number = scene.Numbers.General(value(random));
      cell = std::stof(number);
      text += ';' + number;
    }
    text += "\r\n";
  }
  scene.Recorded(text);
  scene.Analysis.ViewRecording();
  for (std::size_t channel = 0; channel < 8; ++channel) {
    ASSERT_THAT(Points(scene, channel), SizeIs(20));
    for (std::size_t group = 0; group < 20; ++group) {
      double sum = 0;
      for (std::size_t row = 0; row < 37; ++row) {
        sum += std::pow(static_cast<double>(rows[group * 37 + row][channel]), 2);
      }
      EXPECT_NEAR(Points(scene, channel)[group], std::sqrt(sum / 37), 1e-4);
    }
  }
}

TEST(QuickViewScene, StaysAwayWithoutALine) {
  ViewScene scene;
  scene.Recorder.CWGraph2.Visible = false;
  scene.Recorded("");
  scene.Analysis.ViewRecording();
  EXPECT_FALSE(scene.Recorder.CWGraph2.Visible);
  EXPECT_THAT(Points(scene), IsEmpty());
}

TEST(QuickViewScene, StaysAwayAfterTwoStreams) {
  ViewScene scene;
  scene.Recorder.CWGraph2.Visible = false;
  scene.Files.Stored[scene.PathOf("1_" + scene.RecordFileName)] = Lines(4000, 1);
  scene.Analysis.ViewRecording();
  EXPECT_FALSE(scene.Recorder.CWGraph2.Visible);
  EXPECT_EQ(scene.Files.Stored.at(scene.Path()), "");
}

TEST(QuickViewScene, RunsUnderTheHourglassWithAllFilesClosed) {
  ViewScene scene;
  scene.Recorded(Lines(1, 1));
  scene.Open.OpenAnew(7, scene.PathOf("sheet.xls"));
  scene.Disk.AtRead = [&](int read) {
    EXPECT_EQ(scene.Open.IsOpen(7), read == 1);
    EXPECT_TRUE(scene.Pointer.Hourglass);
  };
  scene.Analysis.ViewRecording();
  EXPECT_EQ(scene.Disk.Reads, 2);
  EXPECT_THAT(scene.Journal, ElementsAre("hourglass", "normal pointer"));
}

TEST(QuickViewScene, LetsItsFailuresThrough) {
  ViewScene scene;
  scene.Files.Folders.clear();
  EXPECT_EQ(FailureOf([&] { scene.Analysis.ViewRecording(); }), platform::failure::PathNotFound);
  EXPECT_FALSE(scene.Pointer.Hourglass);
  EXPECT_FALSE(scene.Recorder.ProgressBar1.Visible);
  EXPECT_THAT(scene.Dialogs.Shown, IsEmpty());
}

TEST(QuickViewScene, FillsTheRestOfTheBarWithoutHandlingAnEvent) {
  ViewScene scene;
  scene.Recorded(Lines(50'000, 1));
  std::vector<std::int16_t> painted;
  scene.Recorder.ProgressBar1.Repaint = [&] {
    EXPECT_TRUE(scene.Recorder.ProgressBar1.Visible);
    painted.push_back(scene.Recorder.ProgressBar1.Value);
  };
  scene.Analysis.ViewRecording();
  EXPECT_TRUE(std::is_sorted(painted.begin(), painted.end()));
  EXPECT_EQ(painted.front(), 25);
  EXPECT_EQ(painted.back(), 100);
  EXPECT_GT(painted.size(), 10U);
  EXPECT_LE(painted.size(), 2U * 51);
  EXPECT_FALSE(scene.Recorder.ProgressBar1.Visible);
  EXPECT_EQ(scene.Events.Count(), 0);
}

}  // namespace
}  // namespace support
