#include <gmock/gmock.h>

#include <cmath>

#include "support/scene.h"
#include "support/square_frame.h"

namespace {

using support::FrameBytes;
using support::Scene;
using support::SquareFrame;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;

/// A run of the Values view, its check box for the real-time value at hand.
class RealTimeValue : public testing::Test {
 protected:
  RealTimeValue() { scene.Start(); }

  static FrameBytes Hundred(int i) { return SquareFrame(i, 100, 10); }
  /// The RMS of what a column has beside its mean.
  static double AcOf(const std::vector<double>& column) {
    double sum = 0;
    double squares = 0;
    for (const double value : column) {
      sum += value;
      squares += value * value;
    }
    const double mean = sum / static_cast<double>(column.size());
    return std::sqrt(squares / static_cast<double>(column.size()) - mean * mean);
  }
  void Tick() { scene.Main.Check5.Value = 1; }
  void Untick() { scene.Main.Check5.Value = 0; }
  std::string Shown(std::size_t channel) const { return scene.Main.Label5[channel].Caption; }

  Scene scene;
};

TEST_F(RealTimeValue, IsOffAndOnTheFirstChannelAtTheStart) {
  EXPECT_FALSE(scene.State.RealTimeMode);
  EXPECT_EQ(scene.State.RealTimeChannel, 1);
}

TEST_F(RealTimeValue, TheCheckBoxPumpsEmptiesTheViewAndSetsTheMode) {
  scene.RunValues();
  scene.Receive(400, Hundred);
  scene.Journal.clear();
  bool modeAtPump = true;
  std::string shownAtPump;
  scene.Events.AtPump(1, [&] {
    modeAtPump = scene.State.RealTimeMode;
    shownAtPump = Shown(0);
  });

  Tick();

  EXPECT_THAT(scene.Journal, ElementsAre("pump"));
  EXPECT_FALSE(modeAtPump);
  EXPECT_EQ(shownAtPump, "100.0000");
  EXPECT_EQ(Shown(0), "0.0000");
  EXPECT_EQ(Shown(7), "0.0000");
  EXPECT_TRUE(scene.State.RealTimeMode);
}

TEST_F(RealTimeValue, AnyOtherCheckValueLeavesTheModeAlone) {
  scene.Main.Check5.Value = 2;
  EXPECT_FALSE(scene.State.RealTimeMode);
  Tick();
  scene.Main.Check5.Value = 2;
  EXPECT_TRUE(scene.State.RealTimeMode);
}

TEST_F(RealTimeValue, UntickingEmptiesTheViewToo) {
  Tick();
  scene.RunValues();
  scene.Receive(400, Hundred);
  ASSERT_EQ(Shown(0), "100.0000");

  Untick();

  EXPECT_FALSE(scene.State.RealTimeMode);
  EXPECT_EQ(Shown(0), "0.0000");
}

TEST_F(RealTimeValue, ClimbsDuringTheFirstBlock) {
  Tick();
  scene.RunValues();

  scene.Receive(100, Hundred);
  EXPECT_EQ(Shown(0), "50.0000");
  scene.Receive(100, Hundred);
  EXPECT_EQ(Shown(0), "70.7107");
  scene.Receive(200, Hundred);
  EXPECT_EQ(Shown(0), "100.0000");
}

TEST_F(RealTimeValue, StartsFromWhatThePreviousRunLeft) {
  scene.RunValues();
  scene.ReceiveBlock(Hundred);
  Tick();

  scene.Receive(SquareFrame(0, 100, 10));

  EXPECT_EQ(Shown(0), "100.0000");
}

TEST_F(RealTimeValue, ChangesWithEveryFrame) {
  Tick();
  scene.RunValues();
  scene.Receive(400, Hundred);

  scene.Receive(SquareFrame(0, 0, 0));

  // 399 samples of the square are left, one half-wave more on the negative side.
  const double mean = -100.0 / 400;
  const double expected = std::sqrt(399 * 100.0 * 100.0 / 400 - mean * mean);
  EXPECT_NEAR(scene.State.RmsValues[0], expected, 1e-9);
  EXPECT_EQ(Shown(0), scene.Numbers.Format(expected, "0.0000"));
  EXPECT_NE(Shown(0), "100.0000");
}

TEST_F(RealTimeValue, LeavesTheOtherChannelsAsTheyWere) {
  Tick();
  scene.RunValues();
  scene.Receive(1000, Hundred);

  for (std::size_t channel = 1; channel < 8; ++channel) EXPECT_EQ(Shown(channel), "0.0000");
}

TEST_F(RealTimeValue, AClickOnAValueChoosesItsChannel) {
  Tick();
  scene.RunValues();
  scene.Receive(400, Hundred);

  scene.Main.Label5[3].Click();
  EXPECT_EQ(scene.State.RealTimeChannel, 4);
  EXPECT_EQ(Shown(0), "0.0000");

  std::vector<double> column;
  for (int i = 0; i < 400; ++i) column.push_back(i % 2 == 0 ? 100 : -100);
  for (std::size_t row = 0; row < 5; ++row) {
    const double level = 400.0 * static_cast<double>(row + 1);
    column[row] = level;
    scene.Receive(SquareFrame(0, level, 10));
    EXPECT_EQ(Shown(3), scene.Numbers.Format(AcOf(column), "0.0000")) << "frame " << row;
  }
  for (const std::size_t channel : {0U, 1U, 2U, 4U, 5U, 6U, 7U}) {
    EXPECT_EQ(Shown(channel), "0.0000") << channel;
  }
}

TEST_F(RealTimeValue, AClickOutsideTheModeOnlyPreparesTheChannel) {
  scene.RunValues();
  scene.Receive(400, Hundred);

  scene.Main.Label5[7].Click();

  EXPECT_EQ(scene.State.RealTimeChannel, 8);
  EXPECT_EQ(Shown(0), "100.0000");
  EXPECT_EQ(Shown(7), "10.0000");
}

TEST_F(RealTimeValue, TickedDuringABurstCaptureKeepsRunning) {
  scene.RunValues();
  scene.Receive(100, Hundred);
  Tick();
  scene.Journal.clear();

  scene.Receive(1100, Hundred);

  EXPECT_EQ(scene.State.BlockCount, 3);
  EXPECT_THAT(scene.Journal, Not(Contains("stop")));
  EXPECT_TRUE(scene.Capture.Running);
  EXPECT_FALSE(scene.Main.Timer2.Enabled);
}

TEST_F(RealTimeValue, TickedBetweenBurstsCaptureRestartsOnceAndKeepsRunning) {
  scene.RunValues();
  scene.Receive(400, Hundred);
  Tick();
  scene.Elapse(100ms);
  ASSERT_TRUE(scene.Capture.Running);
  scene.Journal.clear();

  scene.Receive(1200, Hundred);
  scene.Elapse(10s);

  EXPECT_THAT(scene.Journal, Not(Contains("stop")));
  EXPECT_TRUE(scene.Capture.Running);
  EXPECT_EQ(Shown(0), "100.0000");
  EXPECT_EQ(Shown(1), "0.0000");
}

TEST_F(RealTimeValue, UntickedTheRunReturnsToBursts) {
  Tick();
  scene.RunValues();
  scene.Receive(600, Hundred);

  Untick();
  scene.Receive(199, Hundred);
  EXPECT_TRUE(scene.Capture.Running);
  scene.Receive(Hundred(199));

  EXPECT_FALSE(scene.Capture.Running);
  EXPECT_TRUE(scene.Main.Timer2.Enabled);
  EXPECT_EQ(Shown(0), "100.0000");
  EXPECT_EQ(Shown(7), "10.0000");
}

TEST_F(RealTimeValue, IsNotGatedByTheZeroTest) {
  Tick();
  scene.RunValues();

  scene.Receive(400, [](int i) { return SquareFrame(i, 0.05, 0); });

  EXPECT_EQ(Shown(0), "0.0500");
}

TEST_F(RealTimeValue, ShowsNoDc) {
  scene.Main.Check4.Value = 1;
  Tick();
  scene.RunValues();

  scene.Receive(800, [](int i) { return SquareFrame(i, 100, 10, 50); });

  EXPECT_EQ(Shown(0), "100.0000");
  for (std::size_t i = 8; i < 16; ++i) EXPECT_EQ(scene.Main.Label12[i].Caption, "") << i;
}

TEST_F(RealTimeValue, BelongsToTheValuesModeAlone) {
  Tick();
  scene.RunValues();
  scene.State.LookingForValues = false;
  scene.State.LookingForPhases = true;

  scene.Receive(399, Hundred);

  EXPECT_EQ(Shown(0), "0.0000");
  EXPECT_EQ(scene.State.RmsValues[0], 0);
}

TEST_F(RealTimeValue, FollowsTheFormatAtOnce) {
  Tick();
  scene.RunValues();
  scene.Receive(400, Hundred);

  scene.Main.Combo3.ListIndex = 8;
  scene.Receive(1, Hundred);

  EXPECT_EQ(Shown(0), "100.0");
}

}  // namespace
