#include <gmock/gmock.h>

#include "support/scene.h"

namespace {

using support::Scene;
using support::SvFrame;

/// The program in a window of its smallest size.
class Layout : public ::testing::Test {
 protected:
  Layout() {
    scene.Start();
    main.Window.State = platform::WindowState::Normal;
    main.StatusBar1.Height = 360;
    main.Frame1.Width = 2900;
    main.Picture1[0].Width = 1600;
    main.Picture1[0].Height = 305;
    main.Picture1[3].Width = 1600;
  }
  void Resize(std::int32_t width, std::int32_t height) { main.Window.TakeSize(width, height); }

  Scene scene;
  forms::Main& main = scene.Main;
};

TEST_F(Layout, KeepsTheSmallestSize) {
  Resize(9000, 8000);

  EXPECT_EQ(main.Window.Width, 15360);
  EXPECT_EQ(main.Window.Height, 11520);
}

TEST_F(Layout, SkipsTheRefusalOfAMaximisedWindow) {
  main.Window.State = platform::WindowState::Maximized;

  Resize(9000, 11520);

  EXPECT_EQ(main.Window.Width, 9000);
  EXPECT_TRUE(main.TabStrip1.Visible);
}

TEST_F(Layout, SkipsTheRefusalOfAWindowThatCannotBeMoved) {
  main.Window.Width.OnAssign(
      [](std::int32_t) { throw platform::Failure(platform::failure::WindowMoving); });

  Resize(9000, 11520);

  EXPECT_EQ(main.Label5[0].Left, 703);
  EXPECT_TRUE(main.TabStrip1.Visible);
}

TEST_F(Layout, TellsOnceThatItsRulesAreThrough) {
  int layouts = 0;
  std::int32_t height = 0;
  bool hidden = false;
  main.Window.Layouts.Observe([&] {
    ++layouts;
    height = main.Frame2.Height;
    hidden = !main.TabStrip1.Visible;
  });

  Resize(20000, 15000);

  EXPECT_EQ(layouts, 1);
  EXPECT_EQ(height, 10500);
  EXPECT_TRUE(hidden);
}

TEST_F(Layout, PlacesTheValuesInTwoColumns) {
  Resize(15360, 11520);

  for (std::size_t i = 0; i < 8; ++i) {
    EXPECT_EQ(main.Label5[i].Left, i < 4 ? 1200 : 6480);
    EXPECT_EQ(main.Label6[i].Left, i < 4 ? 1200 : 6480);
    EXPECT_EQ(main.Label5[i].Width, 4095);
    EXPECT_EQ(main.Label5[i].Height, 975);
    EXPECT_FLOAT_EQ(main.Label5[i].FontSize, 36.0F);
    EXPECT_EQ(main.Label12[i + 8].Left, main.Label5[i].Left + 50);
    EXPECT_EQ(main.Label12[i + 8].Top, main.Label5[i].Top + 50);
  }
  EXPECT_GT(main.Label5[1].Top, main.Label5[0].Top + main.Label5[0].Height);
}

TEST_F(Layout, GrowsTheNumbersWithTheHeightAlone) {
  Resize(30720, 17280);

  EXPECT_EQ(main.Label5[0].Left, 2400);
  EXPECT_EQ(main.Label5[4].Left, 12960);
  EXPECT_EQ(main.Label5[0].Width, 8190);
  EXPECT_EQ(main.Label5[0].Height, 1463);
  EXPECT_FLOAT_EQ(main.Label5[0].FontSize, 54.0F);
}

TEST_F(Layout, DocksTheScopesFrameToTheRight) {
  Resize(20000, 15000);

  EXPECT_EQ(main.Frame1.Left, 20000 - 300 - 2900);
  EXPECT_EQ(main.Frame1.Top, 800);
  EXPECT_EQ(main.CWGraph1.Left, 0);
  EXPECT_EQ(main.CWGraph1.Top, 800);
  EXPECT_EQ(main.CWGraph1.Width, main.Frame1.Left.Get());
  EXPECT_EQ(main.CWGraph1.Height, 15000 - 1400 - 360);
  EXPECT_EQ(main.Frame1.Height, main.CWGraph1.Height.Get());
  EXPECT_EQ(main.Picture1[0].Left, (2900 - 1600) / 2);
  EXPECT_EQ(main.Picture1[0].Top, main.Frame1.Height - 200 - 305);
}

TEST_F(Layout, PutsTheLogosIntoTheCorner) {
  Resize(20000, 15000);

  EXPECT_EQ(main.Picture1[3].Left + main.Picture1[3].Width, 20000 - 500);
  EXPECT_EQ(main.Picture1[3].Top, 15000 - 1250);
}

TEST_F(Layout, KeepsThePhasorPictureSquare) {
  Resize(20000, 15000);

  EXPECT_EQ(main.Frame2.Width, 17000);
  EXPECT_EQ(main.Frame2.Height, 10500);
  EXPECT_EQ(main.phasordiagram.Width, 8400);
  EXPECT_EQ(main.phasordiagram.Height, 8400);
  EXPECT_EQ(main.phasordiagram.Left, 525);
  EXPECT_EQ(main.phasordiagram.Top, 525);
}

TEST_F(Layout, EndsTheInformationPictureAtItsShareOfTheWidth) {
  main.Picture4.Width = 3200;
  main.Picture4.Height = 610;

  Resize(20000, 15000);

  EXPECT_EQ(main.Picture4.Left + main.Picture4.Width, 19400);
  EXPECT_EQ(main.Picture4.Top, 15000 - 915);
}

TEST_F(Layout, EndsTheSmallLabelsAtTheSameShareOfTheWidth) {
  main.Picture4.Height = 610;
  main.Label3[0].Width = 2600;
  main.Label4.Width = 1500;

  Resize(20000, 15000);

  EXPECT_EQ(main.Label3[0].Left, 19400 - 2600);
  EXPECT_EQ(main.Label4.Left, 19400 - 1500);
  EXPECT_EQ(main.Label3[0].Top, 15000 - 915 - 720);
  EXPECT_EQ(main.Label4.Top, 15000 - 915 - 360);
}

TEST_F(Layout, IsLeftSilentlyByAnyOtherFailure) {
  scene.Select(forms::tab::Setup);
  main.Label5[0].FontSize.Observe([] { throw platform::Failure(platform::failure::Overflow); });
  const auto boxes = scene.Dialogs.Shown.size();

  Resize(20000, 15000);

  EXPECT_FALSE(main.TabStrip1.Visible);
  EXPECT_EQ(main.TabStrip1.SelectedTab, forms::tab::Info);
  EXPECT_EQ(main.Label5[0].Width, 5332);
  EXPECT_NE(main.Label5[7].Width, 5332);
  EXPECT_EQ(scene.Dialogs.Shown.size(), boxes);
}

TEST_F(Layout, ComesBackToTheTab) {
  scene.Select(forms::tab::Setup);

  Resize(20000, 15000);

  EXPECT_EQ(main.TabStrip1.SelectedTab, forms::tab::Setup);
  EXPECT_EQ(main.TabStrip1.Width, 20000);
  EXPECT_EQ(main.TabStrip1.Height, 15000);
  EXPECT_TRUE(main.TabStrip1.Visible);
}

TEST_F(Layout, SelectsTheFirstTabForItsTime) {
  scene.Select(forms::tab::Setup);
  std::vector<int> tabs;
  main.TabStrip1.SelectedTab.Observe([&] { tabs.push_back(main.TabStrip1.SelectedTab); });

  Resize(20000, 15000);

  EXPECT_THAT(tabs, ::testing::ElementsAre(1, 7));
}

TEST_F(Layout, StoresNothing) {
  scene.Select(forms::tab::Setup);
  scene.Store.Written.clear();

  Resize(20000, 15000);

  EXPECT_THAT(scene.Store.Written, ::testing::IsEmpty());
}

TEST_F(Layout, LeavesTheTabInUseAsItIs) {
  scene.Select(forms::tab::Setup);
  std::vector<int> inUse;
  main.TabStrip1.SelectedTab.Observe([&] {
    // Pumps before and behind the place where a change takes the tab over.
    for (const int n : {1, 2, 3}) {
      scene.Events.AtPump(n, [&] { inUse.push_back(scene.Settings.MainActiveTab); });
    }
  });

  Resize(20000, 15000);

  EXPECT_THAT(inUse, ::testing::AllOf(::testing::SizeIs(6), ::testing::Each(7)));
}

TEST_F(Layout, KnowsTheTabInUseWhereAnotherIsChosenInItsMidst) {
  for (const int pump : {1, 2, 3, 4}) {
    scene.Select(forms::tab::Setup);
    scene.Events.AtPump(pump, [this] { scene.Select(forms::tab::Waveforms); });

    Resize(20000 + pump, 15000);

    EXPECT_EQ(scene.Settings.MainActiveTab, main.TabStrip1.SelectedTab) << pump;
    EXPECT_EQ(scene.Store.Texts["MainActiveTab"], std::to_string(main.TabStrip1.SelectedTab))
        << pump;
  }
}

TEST_F(Layout, LeavesTheTabAloneWhileCaptureRuns) {
  scene.RunValues();
  scene.Receive(SvFrame().Bytes());

  Resize(20000, 15000);

  EXPECT_EQ(main.TabStrip1.SelectedTab, forms::tab::Values);
  EXPECT_TRUE(scene.Capture.Running);
  EXPECT_TRUE(scene.State.LookingForValues);
  EXPECT_EQ(main.Label5[0].Width, 5332);
}

TEST_F(Layout, DoesNotEndALiveViewBetweenTwoBlocks) {
  scene.RunValues();
  scene.Receive(400, [](int i) { return support::SineFrame(i, 100, 10); });
  ASSERT_FALSE(scene.State.CaptureRunning);

  Resize(20000, 15000);
  scene.Elapse(std::chrono::milliseconds(100));

  EXPECT_TRUE(scene.Capture.Running);
}

}  // namespace
