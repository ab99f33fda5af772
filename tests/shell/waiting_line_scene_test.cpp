#include "shell/tab_scene.h"
#include "support/capture_bench.h"

namespace {

using support::PlainFrame;
using support::SineFrame;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;

/// The whole program on a bus with two stations, the first of which is missing.
class WaitingView : public shell_tests::TabScene {
 protected:
  WaitingView() { main.Text1[forms::setup_field::Content2].Text = "MU02"; }

  /// Starts a view; only the second station sends.
  void RunWithoutTheFirst(std::int16_t tab, platform::CWButton& button) {
    scene.Select(tab);
    button.Value = true;
    scene.Receive(8, [](int i) { return PlainFrame(i, "MU02"); });
    scene.Elapse(2s);
    ASSERT_TRUE(scene.Dialogs.TimedShown.empty());
  }
  std::string Line(std::size_t view) const { return main.QuietLine[view].Caption; }

  static constexpr const char* Missing =
      "Waiting for \"MU01\": 8 frames came in, none held this ID.";
};

TEST_F(WaitingView, NamesTheMissingStationUntilItsBlockIsShown) {
  const struct {
    std::int16_t Tab;
    platform::CWButton& Button;
    std::size_t View;
  } views[] = {{2, main.CWButton4, forms::quiet_line::Values},
               {3, main.CWButton2, forms::quiet_line::Phasor},
               {4, main.CWButton1, forms::quiet_line::Waveforms}};
  for (const auto& view : views) {
    RunWithoutTheFirst(view.Tab, view.Button);
    EXPECT_EQ(Line(view.View), Missing);
    scene.Receive(400, [](int i) { return SineFrame(i, 100, 10); });
    EXPECT_EQ(Line(view.View), "") << view.Tab;
    scene.Select(forms::tab::Info);
    scene.Elapse(1s);
  }
}

TEST_F(WaitingView, IsQuietWhileBlocksComeWithTheLongestPause) {
  scene.Settings.InternalDelay = 32767;
  scene.Select(forms::tab::Values);
  main.CWButton4.Value = true;
  scene.Receive(PlainFrame(0));
  for (int block = 0; block < 3; ++block) {
    bool said = false;
    main.QuietLine[forms::quiet_line::Values].Visible.Observe([&] { said = true; });
    scene.ReceiveBlock([](int i) { return SineFrame(i, 100, 10); });
    ASSERT_TRUE(scene.State.CaptureRunning);
    scene.Elapse(1s);
    EXPECT_FALSE(said);
  }
}

TEST_F(WaitingView, SaysThatTheSignalIsSilentAfterBlocksWereShown) {
  scene.Select(forms::tab::Values);
  main.CWButton4.Value = true;
  scene.Receive(PlainFrame(0));
  scene.ReceiveBlock([](int i) { return SineFrame(i, 100, 10); });
  for (int block = 0; block < 4; ++block) {
    scene.ReceiveBlock([](int i) { return PlainFrame(i, "MU01", 0); });
  }
  scene.Elapse(500ms);
  EXPECT_EQ(Line(forms::quiet_line::Values),
            "Waiting for \"MU01\": 1600 frames came in, 1600 held this ID, the signal is silent.");
}

TEST_F(WaitingView, IsGoneAtOnceWithAStopAndWithAChangeOfTab) {
  RunWithoutTheFirst(2, main.CWButton4);
  main.CWButton4.Enabled = true;
  main.CWButton4.Value = false;
  EXPECT_EQ(Line(forms::quiet_line::Values), "");
  scene.Elapse(1s);
  RunWithoutTheFirst(2, main.CWButton4);
  ASSERT_EQ(Line(forms::quiet_line::Values), Missing);
  scene.Select(forms::tab::Setup);
  EXPECT_EQ(Line(forms::quiet_line::Values), "");
}

TEST_F(WaitingView, CountsAFreshRunFromNothing) {
  RunWithoutTheFirst(4, main.CWButton1);
  main.CWButton1.Value = false;
  main.CWButton1.Value = true;
  scene.Receive(3, [](int i) { return PlainFrame(i, "MU02"); });
  scene.Elapse(2s);
  EXPECT_EQ(Line(forms::quiet_line::Waveforms),
            "Waiting for \"MU01\": 3 frames came in, none held this ID.");
}

TEST_F(WaitingView, CountsAnewForTheOtherStation) {
  RunWithoutTheFirst(2, main.CWButton4);
  main.Option3[1].Value = true;
  scene.Elapse(500ms);
  EXPECT_EQ(Line(forms::quiet_line::Values), "");
  scene.Elapse(2s);
  EXPECT_EQ(Line(forms::quiet_line::Values), "Waiting for \"MU02\": no frame came in.");
}

TEST_F(WaitingView, AsksForAStationWhereTheFirstFilterIsEmpty) {
  main.Text1[forms::setup_field::Content1].Text = "";
  main.Text1[forms::setup_field::Content2].Text = "MU02";
  RunWithoutTheFirst(2, main.CWButton4);
  EXPECT_EQ(Line(forms::quiet_line::Values),
            "No station is chosen: 8 frames came in. Choose \"MU02\" on this page.");
  scene.Elapse(1s);
  main.Option3[1].Value = true;
  scene.Receive(1200, [](int i) { return SineFrame(i, 100, 10, "MU02"); });
  EXPECT_EQ(Line(forms::quiet_line::Values), "");
}

TEST_F(WaitingView, NamesTheChoiceWhereTheSecondStationWasChosenAndOneIsLeft) {
  scene.Select(forms::tab::Values);
  main.Option3[1].Value = true;
  // A search that finds one station fills the first filter alone.
  scene.Select(forms::tab::Setup);
  main.Text1[forms::setup_field::Content1].Text = "";
  main.Text1[forms::setup_field::Content2].Text = "";
  main.Text1[forms::setup_field::Content1].Text = "MU03";
  scene.Select(forms::tab::Waveforms);
  main.CWButton1.Value = true;
  scene.Receive(3, [](int i) { return PlainFrame(i, "MU03"); });
  scene.Elapse(2s);
  EXPECT_EQ(Line(forms::quiet_line::Waveforms),
            "No station is chosen: 3 frames came in. Choose \"MU03\" on this page.");
}

TEST_F(WaitingView, NamesTheSamplesOfAChosenStationThatCannotBeLocated) {
  scene.Select(forms::tab::Values);
  main.CWButton4.Value = true;
  scene.Receive(PlainFrame(0));
  scene.ReceiveBlock([](int i) { return SineFrame(i, 100, 10); });
  main.Option3[1].Value = true;
  const auto two = [](int i) {
    return support::SvFrame("MU02").Count(static_cast<std::uint16_t>(i)).Channels(2).Bytes();
  };
  for (int block = 0; block < 4; ++block) scene.ReceiveBlock(two);
  scene.Elapse(500ms);
  EXPECT_NE(Line(forms::quiet_line::Values).find("could not be located"), std::string::npos)
      << Line(forms::quiet_line::Values);
}

TEST_F(WaitingView, NamesTheInterfaceThatWentAwayInTheMidstOfABlock) {
  scene.Select(forms::tab::Values);
  main.CWButton4.Value = true;
  scene.Receive(8, [](int i) { return PlainFrame(i); });
  scene.Elapse(1s);
  scene.Capture.AdapterPresence = platform::Presence::Gone;
  scene.Elapse(1s);
  EXPECT_EQ(Line(forms::quiet_line::Values),
            "The network interface is gone. Please connect it again.");
}

}  // namespace
