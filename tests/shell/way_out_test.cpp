// A user is never stuck: failures that come back, runs without data, and a filter that is refused.

#include <gmock/gmock.h>

#include "shell/tab_scene.h"
#include "support/phasor_bus.h"

namespace {

using platform::Answer;
using platform::Buttons;
using support::PhasorFrame;
using support::SineFrame;
using std::chrono_literals::operator""ms;

constexpr const char* RunTip =
    "'RUN' starts recording samples acc. to time base; 'STOP' freeze actual view";

constexpr const char* RefusedLine =
    "Capture did not start: the 'Packet filter condition' under 'Setup' was refused.";

class WayOut : public shell_tests::TabScene {
 protected:
  void Run(std::int16_t tab, platform::CWButton& button) {
    scene.Select(tab);
    button.Value = true;
    scene.Receive(support::SvFrame().Bytes());
  }
  void ExpectNoRun() {
    EXPECT_FALSE(scene.Capture.Running);
    EXPECT_FALSE(scene.State.CaptureRunning);
    EXPECT_FALSE(scene.State.LookingForValues || scene.State.LookingForPhases ||
                 scene.State.LookingForScope);
    for (const auto& indicator : main.Shape12) EXPECT_FALSE(indicator.Visible);
  }
  void ExpectFree(const platform::CWButton& button) {
    EXPECT_FALSE(button.Value);
    EXPECT_TRUE(button.Enabled);
  }
};

// A failure that comes back.

TEST_F(WayOut, OfAFaultCurrentAboveTheLadderIsOfferedFromTheSecondBoxOn) {
  Run(forms::tab::Phasor, main.CWButton2);
  scene.Dialogs.Answers = {Answer::Ok, Answer::Ok, Answer::Stop};

  scene.Receive(400, [](int i) { return PhasorFrame(i, 63000, 10, 30); });

  ASSERT_EQ(scene.Dialogs.Shown.size(), 3U);
  EXPECT_EQ(scene.Dialogs.Shown[0].BoxButtons, Buttons::Ok);
  EXPECT_EQ(scene.Dialogs.Shown[1].BoxButtons, Buttons::OkStop);
  EXPECT_EQ(scene.Dialogs.Shown[2].BoxButtons, Buttons::OkStop);
  ExpectNoRun();
  EXPECT_TRUE(main.Frame2.Visible);
  scene.Elapse(1000ms);
  ExpectFree(main.CWButton2);
  EXPECT_EQ(main.CWButton2.ToolTipText.Get(),
            "'Run' starts aquiring samples estimate phase values");
}

TEST_F(WayOut, OfAFailureLeavesTheViewToRunAgain) {
  Run(forms::tab::Phasor, main.CWButton2);
  scene.Dialogs.Answers = {Answer::Ok, Answer::Stop};
  scene.Receive(400, [](int i) { return PhasorFrame(i, 63000, 10, 30); });
  scene.Elapse(1000ms);
  scene.Dialogs.Shown.clear();

  Run(forms::tab::Phasor, main.CWButton2);
  scene.Receive(400, [](int i) { return PhasorFrame(i, 400, 10, 30); });

  EXPECT_TRUE(scene.Dialogs.Shown.empty());
  EXPECT_EQ(main.Grid1.Cell[1][1], "400.0000");
  EXPECT_TRUE(main.Timer2.Enabled);
}

TEST_F(WayOut, OfAFailureOfTheRealTimeValueEndsTheRun) {
  main.Check5.Value = 1;
  Run(forms::tab::Values, main.CWButton4);
  main.Label5[0].Caption.OnAssign([&](const std::string&) { throw platform::Failure(6); });
  scene.Dialogs.Answers = {Answer::Ok, Answer::Stop};

  scene.Receive(SineFrame(0, 100, 10));

  ASSERT_EQ(scene.Dialogs.Shown.size(), 2U);
  EXPECT_EQ(scene.LastBox().BoxButtons, Buttons::OkStop);
  ExpectNoRun();
  main.Label5[0].Caption.OnAssign(nullptr);
  scene.Elapse(1000ms);
  ExpectFree(main.CWButton4);
}

TEST_F(WayOut, OfAFrameThatIsTooLongToCountEndsTheRunOfTheScope) {
  scene.Select(forms::tab::Waveforms);
  main.CWButton1.Value = true;
  scene.Dialogs.Answers = {Answer::Ok, Answer::Stop};

  scene.Capture.ReceiveCut(support::FrameBytes(60), 40000);

  EXPECT_EQ(scene.Dialogs.Shown.size(), 2U);
  ExpectNoRun();
  ExpectFree(main.CWButton1);
  EXPECT_TRUE(main.Command1.Enabled);
}

// No data.

struct View {
  std::int16_t Tab;
  const char* Name;
  friend void PrintTo(const View& view, std::ostream* out) { *out << view.Name; }
};

class ViewWithoutData : public WayOut, public testing::WithParamInterface<View> {
 protected:
  platform::CWButton& Button() {
    switch (GetParam().Tab) {
      case 2:
        return main.CWButton4;
      case 3:
        return main.CWButton2;
      default:
        return main.CWButton1;
    }
  }
};

TEST_P(ViewWithoutData, LocksAllRunButtonsForASecond) {
  scene.Select(GetParam().Tab);
  Button().Value = true;

  scene.Elapse(2000ms);

  ASSERT_EQ(scene.Dialogs.TimedShown.size(), 1U);
  const std::vector<platform::CWButton*> buttons = {&main.CWButton1, &main.CWButton2,
                                                    &main.CWButton4};
  for (const platform::CWButton* button : buttons) {
    EXPECT_FALSE(button->Enabled);
    EXPECT_FALSE(button->Value);
  }
  scene.Elapse(999ms);
  for (const platform::CWButton* button : buttons) EXPECT_FALSE(button->Enabled);
  scene.Elapse(1ms);
  for (const platform::CWButton* button : buttons) ExpectFree(*button);
}

TEST_P(ViewWithoutData, GivesItsButtonTheTipOfAnIdleOne) {
  const std::string before = main.CWButton1.ToolTipText;
  scene.Select(GetParam().Tab);
  Button().Value = true;

  scene.Elapse(2000ms);

  const std::string values = GetParam().Tab == forms::tab::Values
                                 ? "'Run' starts aquiring samples to calculate RMS"
                                 : RunTip;
  EXPECT_EQ(main.CWButton4.ToolTipText.Get(), values);
  const std::string phases = GetParam().Tab == forms::tab::Phasor
                                 ? "'Run' starts aquiring samples estimate phase values"
                                 : RunTip;
  EXPECT_EQ(main.CWButton2.ToolTipText.Get(), phases);
  EXPECT_EQ(main.CWButton1.ToolTipText.Get(), before);
}

TEST_P(ViewWithoutData, RunsOnceDataComes) {
  scene.Select(GetParam().Tab);
  Button().Value = true;
  scene.Elapse(3000ms);

  Button().Value = true;
  scene.Receive(401, [](int i) { return SineFrame(i, 100, 10); });

  EXPECT_TRUE(main.Timer2.Enabled);
}

INSTANTIATE_TEST_SUITE_P(Views, ViewWithoutData,
                         testing::Values(View{2, "Values"}, View{3, "Phasor"},
                                         View{4, "Waveforms"}));

TEST_F(WayOut, OfAViewLeftBeforeItsFirstFrameGivesItsButtonTheTipOfAnIdleOne) {
  scene.Select(forms::tab::Values);
  main.CWButton4.Value = true;

  scene.Select(forms::tab::Setup);

  EXPECT_EQ(main.CWButton4.ToolTipText.Get(), "'Run' starts aquiring samples to calculate RMS");
}

// A refused filter.

class ViewWithARefusedFilter : public ViewWithoutData {
 protected:
  /// The quiet lines of the live views stand in the order of their tabs.
  platform::QuietLine& Line() {
    return main.QuietLine[static_cast<std::size_t>(GetParam().Tab - 2)];
  }
};

TEST_P(ViewWithARefusedFilter, GetsItsButtonBack) {
  scene.Capture.StartFailure = platform::Failure(platform::failure::FilterRefused);
  scene.Select(GetParam().Tab);

  Button().Value = true;

  EXPECT_EQ(scene.Dialogs.Shown.size(), 1U);
  ExpectNoRun();
  scene.Elapse(1000ms);
  ExpectFree(Button());
  EXPECT_TRUE(main.Command1.Enabled);
  EXPECT_EQ(Button().ToolTipText.Get().find("'Stop'"), std::string::npos);
  EXPECT_EQ(Line().Caption, RefusedLine);
}

TEST_F(WayOut, OfARecordingWithARefusedFilterIsItsButton) {
  scene.Capture.StartFailure = platform::Failure(platform::failure::FilterRefused);
  scene.Select(forms::tab::Recorder);

  main.CWButton3.Value = true;

  ExpectFree(main.CWButton3);
  EXPECT_TRUE(main.CWButton3.Visible);
  for (const platform::OptionButton& format : main.Option2) EXPECT_TRUE(format.Enabled);
  EXPECT_EQ(main.Label10[3].ForeColor.Get(), (platform::Rgb{0, 0, 0}));
  EXPECT_EQ(main.QuietLine[3].Caption, RefusedLine);
  EXPECT_EQ(scene.Dialogs.Shown.size(), 1U);

  scene.Capture.StartFailure.reset();
  main.CWButton3.Value = true;
  EXPECT_EQ(main.QuietLine[3].Caption, "");
  scene.Receive(4001, [](int i) { return SineFrame(i, 100, 10); });
  EXPECT_TRUE(main.CWButton3.Visible);
  EXPECT_TRUE(scene.State.LookingForRecording);
}

TEST_P(ViewWithARefusedFilter, RunsOnceTheFilterIsMended) {
  scene.Capture.StartFailure = platform::Failure(platform::failure::FilterRefused);
  scene.Select(GetParam().Tab);
  Button().Value = true;
  scene.Elapse(1000ms);
  scene.Capture.StartFailure.reset();

  Button().Value = true;
  EXPECT_EQ(Line().Caption, "");
  scene.Receive(401, [](int i) { return SineFrame(i, 100, 10); });

  EXPECT_TRUE(main.Timer2.Enabled);
}

INSTANTIATE_TEST_SUITE_P(Views, ViewWithARefusedFilter,
                         testing::Values(View{2, "Values"}, View{3, "Phasor"},
                                         View{4, "Waveforms"}));

}  // namespace
