#include <gmock/gmock.h>

#include "scope_scene.h"

namespace {

using std::chrono::milliseconds;
using support::SineFrame;
using testing::AllOf;
using testing::Each;
using testing::SizeIs;

/// A channel is ticked on the Waveforms view: which block is drawn again.
class ScopeTick : public ScopeScene {
 protected:
  std::vector<double> Curve(std::size_t i) const { return main.CWGraph1.Plots[i].Y; }
  std::vector<std::vector<double>> Curves() const {
    std::vector<std::vector<double>> curves;
    for (const platform::Plot& plot : main.CWGraph1.Plots) curves.push_back(plot.Y);
    return curves;
  }
};

TEST_F(ScopeTick, BehindAStopPlotsTheLastCompleteBlockAgain) {
  Run();
  Block(100, 10);
  scene.Elapse(milliseconds(100));
  scene.Receive(200, [](int i) { return SineFrame(i, 900, 90); });
  main.CWButton1.Value = false;
  const auto before = Curve(0);

  main.Check2[1].Value = 0;

  EXPECT_EQ(Curve(0), before);
  EXPECT_NEAR(Curve(0)[20], 141.421, 0.001);
}

TEST_F(ScopeTick, BehindAStopInTheFirstBlockShowsFlatZeros) {
  Run();
  scene.Receive(200, [](int i) { return SineFrame(i, 900, 90); });
  main.CWButton1.Value = false;

  main.Check2[1].Value = 0;

  EXPECT_THAT(Curves(), Each(AllOf(SizeIs(400), Each(0.0))));
}

TEST_F(ScopeTick, BehindAPhasorRunWithoutDataAndAChoiceOfStationPlotsThatBlockToo) {
  main.Text1[14].Text = "MU02";
  Run();
  Block(100, 10);
  main.CWButton1.Value = false;
  const auto before = Curve(0);
  scene.Select(forms::tab::Phasor);
  scene.Elapse(std::chrono::seconds(1));
  main.CWButton2.Value = true;
  ASSERT_TRUE(scene.State.CaptureRunning);
  scene.Elapse(milliseconds(2500));
  ASSERT_FALSE(main.CWButton2.Value);
  ASSERT_TRUE(scene.State.LookingForPhases);

  main.Option3[3].Value = true;
  scene.Select(forms::tab::Waveforms);
  main.Check2[1].Value = 0;

  EXPECT_EQ(Curve(0), before);
}

TEST_F(ScopeTick, InThePumpsOfAStopPlotsTheLastCompleteBlockToo) {
  Run();
  Block(100, 10);
  scene.Elapse(milliseconds(100));
  scene.Receive(200, [](int i) { return SineFrame(i, 900, 90); });
  scene.Events.AtPump(2, [&] { main.Check2[1].Value = 0; });

  main.CWButton1.Value = false;

  EXPECT_NEAR(Curve(0)[20], 141.421, 0.001);
}

TEST_F(ScopeTick, InTheMidstOfABurstShowsABlockOfMixedAge) {
  Run();
  Block(100, 10);
  scene.Elapse(milliseconds(100));
  scene.Receive(200, [](int i) { return SineFrame(i, 900, 90); });

  main.Check2[1].Value = 0;

  EXPECT_NEAR(Curve(0)[20], 1272.792, 0.001);
  EXPECT_NEAR(Curve(0)[260], 141.421, 0.001);
}

TEST_F(ScopeTick, PlotsTheBlockOfTheViewThatRanLast) {
  scene.Select(forms::tab::Values);
  main.CWButton4.Value = true;
  scene.Receive(SineFrame(0, 100, 10));
  Block(100, 10);
  scene.Elapse(milliseconds(100));
  scene.Receive(200, [](int i) { return SineFrame(i, 900, 90); });
  scene.Select(forms::tab::Waveforms);

  main.Check2[1].Value = 0;

  EXPECT_NEAR(Curve(0)[20], 141.421, 0.001);
}

}  // namespace
