#include <gmock/gmock.h>

#include "support/scene.h"

namespace {

using platform::CWGraph;
using std::chrono::milliseconds;
using support::Scene;
using support::SineFrame;
using support::SvFrame;
using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// The Waveforms view, with the graph's requests written down.
class Scope : public ::testing::Test {
 protected:
  Scope() {
    scene.Start();
    scene.Select(forms::tab::Waveforms);
    main.CWGraph1.XAxis.ScaleNow = [this] { asked.push_back("x"); };
    main.CWGraph1.YAxis.ScaleNow = [this] { asked.push_back("y"); };
    main.CWGraph1.Refresh = [this] { asked.push_back("refresh"); };
    scene.Journal.clear();
  }

  void Run() {
    main.CWButton1.Value = true;
    scene.Receive(SvFrame().Bytes());
  }
  void Block(double amps, double kilovolts) {
    scene.Receive(scene.Present.BaseSamples, [&](int i) { return SineFrame(i, amps, kilovolts); });
  }
  void NextBlock(double amps, double kilovolts) {
    scene.Elapse(milliseconds(100));
    asked.clear();
    Block(amps, kilovolts);
  }
  void SilentBlock() {
    scene.ReceiveBlock([](int i) { return SineFrame(i, 0, 0); });
  }
  void Stop() {
    scene.Elapse(milliseconds(1000));
    main.CWButton1.Value = false;
  }
  const std::vector<double>& Curve(std::size_t channel) {
    return main.CWGraph1.Plots[channel].Y.Get();
  }
  std::vector<std::vector<double>> Curves() {
    std::vector<std::vector<double>> curves;
    for (const auto& plot : main.CWGraph1.Plots) curves.push_back(plot.Y);
    return curves;
  }

  Scene scene;
  forms::Main& main = scene.Main;
  std::vector<std::string> asked;
};

TEST_F(Scope, PlotsTheBlockAsEightCurves) {
  Run();
  Block(100, 10);

  for (std::size_t i = 0; i < 8; ++i) {
    EXPECT_TRUE(main.CWGraph1.Plots[i].Visible) << i;
    EXPECT_THAT(Curve(i), SizeIs(400)) << i;
  }
  EXPECT_NEAR(Curve(0)[20], 141.421, 0.001);
  EXPECT_NEAR(Curve(4)[20], 14.14214, 0.00001);
  EXPECT_EQ(Curve(0)[0], 0);
}

TEST_F(Scope, ScalesBothAxesWithTheFirstBlockOnly) {
  Run();
  asked.clear();
  Block(100, 10);
  EXPECT_THAT(asked, ElementsAre("x", "y", "refresh"));

  NextBlock(1000, 10);

  EXPECT_THAT(asked, ElementsAre("refresh"));
  EXPECT_NEAR(Curve(0)[20], 1414.21, 0.01);
}

TEST_F(Scope, ScalesBothAxesAgainWithTheFirstBlockOfTheNextRun) {
  Run();
  Block(100, 10);
  NextBlock(100, 10);
  Stop();
  asked.clear();

  Run();
  Block(1000, 10);
  EXPECT_THAT(asked, ElementsAre("x", "y", "refresh"));

  NextBlock(10, 10);
  EXPECT_THAT(asked, ElementsAre("refresh"));
}

TEST_F(Scope, CountsTheBlocksOfBothStreamsFromTheStartOfARun) {
  scene.State.BlockCount = 7;
  scene.State.BlockCount2 = 5;

  main.CWButton1.Value = true;

  EXPECT_EQ(scene.State.BlockCount, 0);
  EXPECT_EQ(scene.State.BlockCount2, 0);
}

TEST_F(Scope, StopsCaptureBeforeItPlots) {
  Run();
  bool running = true;
  main.CWGraph1.Refresh = [&] { running = scene.Capture.Running; };

  Block(100, 10);

  EXPECT_FALSE(running);
}

TEST_F(Scope, GoesOnAfterItsPauseWithoutAPump) {
  Run();
  Block(100, 10);
  scene.Journal.clear();

  scene.Elapse(milliseconds(100));

  ASSERT_FALSE(scene.Journal.empty());
  EXPECT_EQ(scene.Journal[0], "wait 500");
  EXPECT_EQ(scene.Journal[1], "stop");
  EXPECT_TRUE(scene.Capture.Running);
}

TEST_F(Scope, KeepsItsCurvesForASilentBlock) {
  Run();
  Block(100, 10);
  const auto before = Curve(0);

  NextBlock(0, 0);

  EXPECT_EQ(Curve(0), before);
  EXPECT_THAT(asked, IsEmpty());
}

TEST_F(Scope, KeepsTheCurvesOfTheLastRunOnAStreamOfZeros) {
  Run();
  Block(100, 10);
  Stop();
  const auto before = Curves();
  asked.clear();

  Run();
  for (int block = 0; block < 3; ++block) SilentBlock();

  EXPECT_EQ(Curves(), before);
  for (const auto& plot : main.CWGraph1.Plots) EXPECT_TRUE(plot.Visible);
  EXPECT_THAT(asked, IsEmpty());
}

TEST_F(Scope, ShowsNothingOfAStreamOfZerosAndRunsOn) {
  Run();
  for (int block = 0; block < 3; ++block) SilentBlock();

  EXPECT_THAT(Curves(), Each(IsEmpty()));
  for (const auto& plot : main.CWGraph1.Plots) EXPECT_FALSE(plot.Visible);
  EXPECT_THAT(asked, IsEmpty());
  EXPECT_THAT(scene.Dialogs.Shown, IsEmpty());
  EXPECT_THAT(scene.Dialogs.TimedShown, IsEmpty());
  EXPECT_EQ(scene.State.BlockCount, 3);
  EXPECT_TRUE(scene.State.LookingForScope);
  EXPECT_TRUE(scene.Capture.Running);
  EXPECT_TRUE(main.CWButton1.Value);
}

TEST_F(Scope, DoesNotScaleToTheFirstSignalAfterASilentBlock) {
  Run();
  SilentBlock();

  Block(100, 10);

  EXPECT_NEAR(Curve(0)[20], 141.421, 0.001);
  EXPECT_THAT(asked, ElementsAre("refresh"));
}

TEST_F(Scope, LocksItsButtonsAtTheStart) {
  main.CWButton1.Value = true;

  EXPECT_FALSE(main.CWButton1.Enabled);
  EXPECT_FALSE(main.Command1.Enabled);
  EXPECT_TRUE(scene.State.LookingForScope);
  EXPECT_TRUE(scene.State.PacketLengthPending);
  scene.Receive(SvFrame().Bytes());
  scene.Receive(SvFrame().Bytes());
  scene.Elapse(milliseconds(1000));
  EXPECT_TRUE(main.CWButton1.Enabled);
  EXPECT_FALSE(main.Command1.Enabled);
}

TEST_F(Scope, MeasuresTheFramesAnewAtEachStart) {
  Run();
  Stop();
  ASSERT_FALSE(scene.State.PacketLengthPending);

  main.CWButton1.Value = true;

  EXPECT_TRUE(scene.State.PacketLengthPending);
}

TEST_F(Scope, StopsAtOnceAndKeepsThePicture) {
  Run();
  Block(100, 10);
  scene.Elapse(milliseconds(1000));
  const auto before = Curve(0);

  main.CWButton1.Value = false;

  EXPECT_TRUE(main.CWButton1.Enabled);
  EXPECT_TRUE(main.Command1.Enabled);
  EXPECT_FALSE(scene.State.LookingForScope);
  EXPECT_FALSE(scene.Capture.Running);
  EXPECT_EQ(Curve(0), before);
  EXPECT_EQ(main.CWButton1.ToolTipText,
            "'RUN' starts recording samples acc. to time base; 'STOP' freeze actual view");
}

TEST_F(Scope, HidesAnUncheckedChannelAsZerosAndRescalesAtOnce) {
  Run();
  Block(100, 10);
  asked.clear();

  main.Check2[2].Value = 0;

  EXPECT_FALSE(main.CWGraph1.Plots[2].Visible);
  EXPECT_THAT(Curve(2), Each(0.0));
  EXPECT_THAT(Curve(2), SizeIs(400));
  EXPECT_THAT(asked, ElementsAre("x", "y", "refresh"));
  EXPECT_EQ(scene.Settings.SensorEnabled[2], 0);
  EXPECT_EQ(scene.Store.Texts["Sensor C enabled"], "0");
}

TEST_F(Scope, BringsAChannelBackWithItsCurve) {
  Run();
  Block(100, 10);
  main.Check2[0].Value = 0;

  main.Check2[0].Value = 1;

  EXPECT_TRUE(main.CWGraph1.Plots[0].Visible);
  EXPECT_NEAR(Curve(0)[20], 141.421, 0.001);
}

TEST_F(Scope, BeforeAnyBlockShowsFlatZeros) {
  main.Check2[0].Value = 0;

  for (std::size_t i = 0; i < 8; ++i) EXPECT_THAT(Curve(i), Each(0.0));
  EXPECT_THAT(Curve(1), SizeIs(400));
}

TEST_F(Scope, WithAllChannelsOffStillScales) {
  Run();
  Block(100, 10);
  for (auto& box : main.Check2) box.Value = 0;
  asked.clear();

  main.CWGraph1.DblClick();

  EXPECT_THAT(asked, ElementsAre("x", "y"));
  for (const auto& plot : main.CWGraph1.Plots) EXPECT_FALSE(plot.Visible);
  EXPECT_THAT(Curves(), Each(AllOf(SizeIs(400), Each(0.0))));
}

TEST_F(Scope, FollowsTheNumberOfSamplings) {
  main.Text1[2].Text = "160";
  Run();

  Block(100, 10);

  EXPECT_THAT(Curve(0), SizeIs(160));
}

TEST_F(Scope, StartsInPanModeWithoutAutoscaling) {
  EXPECT_TRUE(main.sevOption1[0].Value);
  EXPECT_EQ(main.CWGraph1.TrackMode, CWGraph::PanMode);
  EXPECT_FALSE(main.CWGraph1.XAxis.AutoScale);
  EXPECT_FALSE(main.CWGraph1.YAxis.AutoScale);
}

TEST_F(Scope, FallsBackToPanAfterOneZoom) {
  main.sevOption1[1].Value = true;
  EXPECT_EQ(main.CWGraph1.TrackMode, CWGraph::ZoomMode);

  main.CWGraph1.ZoomFinished();

  EXPECT_TRUE(main.sevOption1[0].Value);
  EXPECT_FALSE(main.sevOption1[1].Value);
  EXPECT_EQ(main.CWGraph1.TrackMode, CWGraph::PanMode);
}

TEST_F(Scope, AutoscalesAtOnceAndKeepsTheTrackMode) {
  main.sevOption1[1].Value = true;
  asked.clear();

  main.sevOption1[2].Value = true;

  EXPECT_TRUE(main.CWGraph1.XAxis.AutoScale);
  EXPECT_TRUE(main.CWGraph1.YAxis.AutoScale);
  EXPECT_THAT(asked, ElementsAre("x", "y"));
  EXPECT_EQ(main.CWGraph1.TrackMode, CWGraph::ZoomMode);
}

TEST_F(Scope, LeavesAutoscalingForPan) {
  main.sevOption1[2].Value = true;

  main.sevOption1[0].Value = true;

  EXPECT_FALSE(main.CWGraph1.XAxis.AutoScale);
  EXPECT_FALSE(main.CWGraph1.YAxis.AutoScale);
  EXPECT_EQ(main.CWGraph1.TrackMode, CWGraph::PanMode);
}

TEST_F(Scope, AZoomOutsideOfZoomModeChangesNothing) {
  main.sevOption1[2].Value = true;

  main.CWGraph1.ZoomFinished();

  EXPECT_TRUE(main.sevOption1[2].Value);
}

TEST_F(Scope, ShowsSamplesWithTheRightButtonAndLinesWithTheNext) {
  main.CWGraph1.MouseDown(2);
  for (const auto& plot : main.CWGraph1.Plots) {
    EXPECT_EQ(plot.LineStyle, 0);
    EXPECT_EQ(plot.PointStyle, 15);
    EXPECT_EQ(plot.LineWidth, 2);
  }

  main.CWGraph1.MouseDown(2);
  for (const auto& plot : main.CWGraph1.Plots) {
    EXPECT_EQ(plot.LineStyle, 1);
    EXPECT_EQ(plot.PointStyle, 0);
    EXPECT_EQ(plot.LineWidth, 2);
  }
}

TEST_F(Scope, DoesNothingForTheOtherMouseButtons) {
  main.CWGraph1.MouseDown(1);
  main.CWGraph1.MouseDown(3);

  EXPECT_EQ(main.CWGraph1.Plots[0].LineStyle, 1);
}

TEST_F(Scope, TheRecordersGraphSwitchesPanAndZoomWithTheRightButton) {
  main.CWGraph2.MouseDown(2);
  EXPECT_EQ(main.CWGraph2.TrackMode, CWGraph::ZoomMode);
  main.CWGraph2.ZoomFinished();
  EXPECT_EQ(main.CWGraph2.TrackMode, CWGraph::ZoomMode);
  main.CWGraph2.MouseDown(1);
  EXPECT_EQ(main.CWGraph2.TrackMode, CWGraph::ZoomMode);
  main.CWGraph2.MouseDown(2);
  EXPECT_EQ(main.CWGraph2.TrackMode, CWGraph::PanMode);
}

TEST_F(Scope, TheRecordersGraphScalesWithADoubleClick) {
  std::vector<std::string> scaled;
  main.CWGraph2.XAxis.ScaleNow = [&] { scaled.push_back("x"); };
  main.CWGraph2.YAxis.ScaleNow = [&] { scaled.push_back("y"); };

  main.CWGraph2.DblClick();

  EXPECT_THAT(scaled, ElementsAre("x", "y"));
}

TEST_F(Scope, EndsWithTheDialogWhereNothingComes) {
  main.CWButton1.Value = true;

  scene.Elapse(milliseconds(2000));

  EXPECT_THAT(scene.Dialogs.TimedShown, SizeIs(1));
  EXPECT_FALSE(main.CWButton1.Value);
  EXPECT_TRUE(main.Command1.Enabled);
}

TEST_F(Scope, AChannelMayBeSwitchedWhileTheViewIsPlotting) {
  Run();
  scene.Events.AtPump(4, [&] { main.Check2[1].Value = 0; });

  Block(100, 10);

  EXPECT_FALSE(main.CWGraph1.Plots[1].Visible);
  EXPECT_THAT(Curve(1), Each(0.0));
}

}  // namespace
