#include <gmock/gmock.h>

#include "support/scene.h"

namespace {

using std::chrono::milliseconds;
using support::Scene;
using support::SineFrame;
using support::SvFrame;
using testing::ElementsAre;
using testing::SizeIs;

/// In which order the Waveforms view does its work.
class ScopeOrder : public ::testing::Test {
 protected:
  ScopeOrder() {
    scene.Start();
    scene.Select(forms::tab::Waveforms);
    scene.Journal.clear();
  }

  void Run() {
    main.CWButton1.Value = true;
    scene.Receive(SvFrame().Bytes());
  }
  void Block() {
    scene.Receive(scene.Present.BaseSamples, [](int i) { return SineFrame(i, 100, 10); });
  }

  Scene scene;
  forms::Main& main = scene.Main;
};

TEST_F(ScopeOrder, ABlockIsScaledThenLetsEventsInAndIsThenDrawn) {
  main.CWGraph1.XAxis.ScaleNow = [this] { scene.Journal.emplace_back("scale x"); };
  main.CWGraph1.YAxis.ScaleNow = [this] { scene.Journal.emplace_back("scale y"); };
  main.CWGraph1.Refresh = [this] { scene.Journal.emplace_back("refresh"); };
  Run();
  Block();
  scene.Journal.clear();

  main.Check2[0].Value = 0;

  EXPECT_THAT(scene.Journal, ElementsAre("scale x", "scale y", "pump", "refresh"));
}

TEST_F(ScopeOrder, ACurveThatShowsAlreadyIsNotShownAgain) {
  Run();
  Block();
  int told = 0;
  main.CWGraph1.Plots[1].Visible.Observe([&] { ++told; });

  main.Check2[0].Value = 0;
  EXPECT_EQ(told, 0);
  main.Check2[1].Value = 0;
  EXPECT_EQ(told, 1);
}

TEST_F(ScopeOrder, AStartTakesTheBufferOfTheLiveViews) {
  main.CWButton1.Value = true;

  EXPECT_EQ(std::get<std::int32_t>(scene.Capture.Chosen->Settings["BuffSize"]), 262144);
}

TEST_F(ScopeOrder, AStartLetsEventsInBeforeItLocksItsButtons) {
  bool enabled = false;
  scene.Events.AtPump(1, [&] { enabled = main.CWButton1.Enabled && main.Command1.Enabled; });

  main.CWButton1.Value = true;

  EXPECT_TRUE(enabled);
  EXPECT_FALSE(main.CWButton1.Enabled);
}

TEST_F(ScopeOrder, AStopLetsEventsInAndClearsItsFlagBeforeItStopsCapture) {
  Run();
  bool lookingAtHead = false;
  bool lookingAtStop = true;
  scene.Events.AtPump(1, [&] { lookingAtHead = scene.State.LookingForScope; });
  scene.Events.AtPump(2, [&] { lookingAtStop = scene.State.LookingForScope; });
  scene.Journal.clear();

  main.CWButton1.Value = false;

  EXPECT_THAT(scene.Journal, ElementsAre("pump", "stop", "pump", "clear", "pump"));
  EXPECT_TRUE(lookingAtHead);
  EXPECT_FALSE(lookingAtStop);
}

TEST_F(ScopeOrder, ARefusedFilterGivesTheButtonsBackBeforeItsBox) {
  scene.Capture.StartFailure = platform::Failure(platform::failure::FilterRefused);
  bool freeAtBox = false;
  scene.Dialogs.WhileOpen = [&] {
    freeAtBox = main.CWButton1.Enabled && main.Command1.Enabled && !main.CWButton1.Value;
  };

  main.CWButton1.Value = true;

  EXPECT_TRUE(freeAtBox);
  EXPECT_TRUE(scene.LastBox().Text.starts_with("Can't receive packets!"));
  EXPECT_FALSE(scene.State.LookingForScope);
  EXPECT_FALSE(main.Shape12[2].Visible);
  scene.Elapse(milliseconds(10000));
  EXPECT_THAT(scene.Dialogs.Shown, SizeIs(1));
  EXPECT_THAT(scene.Dialogs.TimedShown, SizeIs(0));

  scene.Capture.StartFailure.reset();
  Run();
  Block();
  ASSERT_THAT(main.CWGraph1.Plots[0].Y.Get(), SizeIs(400));
  EXPECT_NEAR(main.CWGraph1.Plots[0].Y.Get()[20], 141.421, 0.001);
}

}  // namespace
