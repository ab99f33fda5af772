#include <vector>

#include "waveforms_scene.h"

namespace desktop {
namespace {

/// How the axes of the graph follow its curves.
class GraphScaling : public WaveformsScene {
 protected:
  /// A flat curve has this much above and below it, and some headroom on top of that.
  static constexpr double FlatReach = 1;
  static constexpr double LargestReach = 1.2;

  void Untick(int first, int last) {
    for (int i = first; i <= last; ++i) Click(Member("Check2", i));
  }
  /// Only the first channel shows, and it has this value all the time.
  void ShowConstant(double value) {
    GoWaveforms();
    Untick(1, 7);
    Form().CWGraph1.Plots[0].Y = std::vector<double>(400, value);
  }
  void ExpectFlatRangeAround(double value) {
    EXPECT_NEAR(Y().center(), value, 1e-6);
    EXPECT_GT(Y().upper, value + FlatReach);
    EXPECT_LT(Y().upper, value + LargestReach);
    EXPECT_LT(Y().lower, value - FlatReach);
    EXPECT_GT(Y().lower, value - LargestReach);
  }
  void ExpectRanges(const QCPRange& x, const QCPRange& y) {
    EXPECT_NEAR(X().lower, x.lower, 1e-6);
    EXPECT_NEAR(X().upper, x.upper, 1e-6);
    EXPECT_NEAR(Y().lower, y.lower, 1e-6);
    EXPECT_NEAR(Y().upper, y.upper, 1e-6);
  }
};

TEST_F(GraphScaling, ADoubleClickScalesBothAxesToTheBlock) {
  ShowBlock();
  const QCPRange x = X();
  const QCPRange y = Y();
  Drag(Middle(), Middle() + QPoint(200, 100));
  ASSERT_NE(X().lower, x.lower);
  ASSERT_NE(Y().lower, y.lower);

  DoubleClick();

  ExpectRanges(x, y);
}

TEST_F(GraphScaling, ADoubleClickScalesToTheVisibleCurvesAlone) {
  ShowBlock();
  Form().CWGraph1.Plots[0].Visible = false;
  Form().CWGraph1.Plots[0].Y = std::vector<double>(400, 5000);

  DoubleClick();

  EXPECT_GT(Y().upper, 400 * 1.41);
  EXPECT_LT(Y().upper, 400 * 1.41 * 1.2);
}

TEST_F(GraphScaling, ZerosStandInTheMiddleOfOneUpAndOneDownHoweverOftenTheyAreScaled) {
  GoWaveforms();
  // Before the first block all channels are zeros; a change of a box plots them.
  Untick(1, 1);
  ExpectFlatRangeAround(0);
  const QCPRange y = Y();

  for (int i = 0; i < 3; ++i) {
    DoubleClick();
    EXPECT_EQ(Y().lower, y.lower) << i;
    EXPECT_EQ(Y().upper, y.upper) << i;
  }
}

TEST_F(GraphScaling, AConstantStandsInTheMiddleOfOneUpAndOneDown) {
  ShowConstant(250);

  DoubleClick();
  ExpectFlatRangeAround(250);
  const QCPRange y = Y();

  DoubleClick();
  EXPECT_EQ(Y().lower, y.lower);
  EXPECT_EQ(Y().upper, y.upper);
}

TEST_F(GraphScaling, AutoscalingPutsAConstantInTheMiddleToo) {
  ShowConstant(-40);

  Click("sevOption1(2)");
  ExpectFlatRangeAround(-40);
  const QCPRange y = Y();

  Form().CWGraph1.Refresh();
  EXPECT_EQ(Y().lower, y.lower);
  EXPECT_EQ(Y().upper, y.upper);
}

TEST_F(GraphScaling, WithNothingVisibleADoubleClickLeavesTheAxes) {
  ShowBlock();
  Untick(0, 7);
  Drag(Middle(), Middle() + QPoint(60, 30));
  const QCPRange x = X();
  const QCPRange y = Y();

  DoubleClick();

  EXPECT_EQ(X().lower, x.lower);
  EXPECT_EQ(X().upper, x.upper);
  EXPECT_EQ(Y().lower, y.lower);
  EXPECT_EQ(Y().upper, y.upper);
}

TEST_F(GraphScaling, AutoscalingUndoesADragInBothDirectionsWithTheNextBlock) {
  RunToABlock();
  const QCPRange x = X();
  const QCPRange y = Y();
  Click("sevOption1(2)");
  Drag(Middle(), Middle() + QPoint(200, 100));

  WaitForTwoBlocks();

  EXPECT_NEAR(X().lower, x.lower, 0.5);
  EXPECT_NEAR(X().upper, x.upper, 0.5);
  EXPECT_NEAR(Y().lower, y.lower, 1);
  EXPECT_NEAR(Y().upper, y.upper, 1);
}

TEST_F(GraphScaling, TheBlocksAfterTheFirstLeaveWhatTheUserPanned) {
  RunToABlock();
  const QCPRange x = X();
  Drag(Middle(), Middle() + QPoint(80, 40));
  const QCPRange pannedX = X();
  const QCPRange pannedY = Y();
  ASSERT_NE(pannedX.lower, x.lower);

  WaitForTwoBlocks();

  EXPECT_TRUE(Program().Acquisition.State.LookingForScope);
  ExpectRanges(pannedX, pannedY);
}

TEST_F(GraphScaling, AGraphThatCameBackShowsWhatChangedWhileItWasAway) {
  ShowBlock();
  const QImage before = Graph().grab().toImage();
  ClickTab(forms::tab::Values);
  Form().CWGraph1.Plots[0].Y = std::vector<double>(400, 300);
  ClickTab(forms::tab::Waveforms);
  const QImage shown = Graph().grab().toImage();
  EXPECT_NE(shown, before);
  Graph().replot();
  EXPECT_EQ(shown, Graph().grab().toImage());
}

}  // namespace
}  // namespace desktop
