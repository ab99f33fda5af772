#include "capture/no_data_watchdog.h"

#include <gmock/gmock.h>

#include "support/watchdog_bench.h"

namespace {

using platform::Failure;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;

constexpr const char* NoDataText =
    " No data received!\r\n"
    "\r\n"
    "Reasons:\r\n"
    "- check cable (crossed/straight network cable)\r\n"
    "- check your choice of the network adapter\r\n"
    "- check setup of your network connection (half duplex!)\r\n"
    "- check correct filter setup (filter condition, filter content)\r\n"
    "- run 'Find streams' on tab 'Setup'\r\n"
    "\r\n"
    "If it still fails, please restart the program and try it again.";

class NoDataWatchdog : public testing::Test, protected support::WatchdogBench {
 protected:
  std::string DialogText() const { return Dialogs.TimedShown.back().Text; }
};

TEST_F(NoDataWatchdog, WaitsTwoSecondsForALiveView) {
  Start("LookingForValues");

  Elapse(1999ms);
  EXPECT_THAT(Dialogs.TimedShown, IsEmpty());
  Elapse(1ms);
  EXPECT_THAT(Dialogs.TimedShown, SizeIs(1));
}

TEST_F(NoDataWatchdog, WaitsFourSecondsForAReport) {
  Start("Report");

  Elapse(3999ms);
  EXPECT_THAT(Dialogs.TimedShown, IsEmpty());
  Elapse(1ms);
  EXPECT_THAT(Dialogs.TimedShown, SizeIs(1));
}

TEST_F(NoDataWatchdog, ShowsItsDialogWithACountDown) {
  Start("LookingForValues");

  Elapse(2000ms);

  const platform::TimedMessage& dialog = Dialogs.TimedShown.back();
  EXPECT_EQ(dialog.Title, "Attention");
  EXPECT_EQ(dialog.Text, NoDataText);
  EXPECT_EQ(dialog.ButtonCaption, "Close");
  EXPECT_EQ(dialog.FontName, "Verdana");
  EXPECT_TRUE(dialog.Bold);
  EXPECT_EQ(dialog.Seconds, 30);
  EXPECT_EQ(dialog.CountdownLine, "This window will be closed after: #sec# seconds.");
}

TEST_F(NoDataWatchdog, EndsAReport) {
  Main.Command2.Enabled = false;
  Start("Report");
  bool requestedAtDialog = true;
  Dialogs.WhileOpen = [&] { requestedAtDialog = State.ReportRequested; };

  Elapse(4000ms);

  EXPECT_THAT(Journal, ElementsAre("stop", "pump", "clear", "pump", "timed box Attention",
                                   "Timer1.Enabled false", "Command2.Enabled true"));
  EXPECT_FALSE(requestedAtDialog);
  EXPECT_EQ(DialogText(),
            std::string("Building a report for required data isn't possible!") + NoDataText);
}

TEST_F(NoDataWatchdog, TurnsItselfOffLongAfterAReportThatCame) {
  Start("Report");
  // The first frame sets the length, the second is the report's.
  Receive(support::PlainFrame(0));
  Receive(support::PlainFrame(1));
  ASSERT_FALSE(State.ReportRequested);

  Elapse(3999ms);
  EXPECT_TRUE(Main.Timer1.Enabled);
  Elapse(1ms);
  EXPECT_FALSE(Main.Timer1.Enabled);
  EXPECT_THAT(Dialogs.TimedShown, IsEmpty());
}

TEST_F(NoDataWatchdog, LeavesAHiddenReportButtonHidden) {
  Main.Command2.Visible = false;
  Start("Report");

  Elapse(4000ms);

  EXPECT_TRUE(Main.Command2.Enabled);
  EXPECT_FALSE(Main.Command2.Visible);
}

TEST_F(NoDataWatchdog, EndsARecording) {
  Main.CWButton3.Enabled = false;
  Start("LookingForRecording");
  bool recordingAtDialog = true;
  Dialogs.WhileOpen = [&] { recordingAtDialog = State.LookingForRecording; };

  Elapse(2000ms);

  EXPECT_THAT(Journal, ElementsAre("stop", "pump", "clear", "pump", "timed box Attention",
                                   "Timer1.Enabled false", "CWButton3.Value false",
                                   "CWButton3.Enabled true", "tab change"));
  EXPECT_FALSE(recordingAtDialog);
  EXPECT_EQ(DialogText(), std::string("Recording isn't possible!") + NoDataText);
}

TEST_F(NoDataWatchdog, EndsTheStreamFinder) {
  Start("LookingForID");
  bool lookingAtDialog = true;
  Dialogs.WhileOpen = [&] { lookingAtDialog = State.LookingForID; };

  Elapse(2000ms);

  EXPECT_THAT(Journal, ElementsAre("stop", "pump", "clear", "pump", "Timer1.Enabled false",
                                   "timed box Attention", "unload IDlook"));
  EXPECT_FALSE(lookingAtDialog);
  EXPECT_EQ(DialogText(), NoDataText);
}

class LiveViewWithoutData : public NoDataWatchdog,
                            public testing::WithParamInterface<const char*> {};

TEST_P(LiveViewWithoutData, IsStoppedWithTheDialogAndItsButtonsLocked) {
  Start(GetParam());
  bool valuesOrScopeAtDialog = true;
  Dialogs.WhileOpen = [&] {
    valuesOrScopeAtDialog = State.LookingForValues || State.LookingForScope;
  };

  Elapse(2000ms);

  EXPECT_THAT(
      Journal,
      ElementsAre("stop", "pump", "clear", "pump", "timed box Attention", "Timer1.Enabled false",
                  "CWButton1.Enabled false", "CWButton4.Enabled false", "Timer3.Enabled true",
                  "CWButton4.Value false", "CWButton1.Value false", "CWButton2.Value false",
                  "CWButton1.Enabled false", "CWButton2.Enabled false"));
  EXPECT_FALSE(valuesOrScopeAtDialog);
  EXPECT_EQ(DialogText(), NoDataText);
  EXPECT_FALSE(State.CaptureRunning);
}

INSTANTIATE_TEST_SUITE_P(Modes, LiveViewWithoutData,
                         testing::Values("LookingForValues", "LookingForScope",
                                         "LookingForPhases"));

TEST_F(NoDataWatchdog, LeavesTheFlagOfThePhasesToTheirButton) {
  bool phasesAtStop = false;
  Main.CWButton2.ValueChanged = [&] { phasesAtStop = State.LookingForPhases; };
  Start("LookingForPhases");

  Elapse(2000ms);

  EXPECT_TRUE(phasesAtStop);
  EXPECT_TRUE(State.LookingForPhases);
}

TEST_F(NoDataWatchdog, TurnsItselfOffWhereNoModeWaits) {
  Start("LookingForValues");
  State.LookingForValues = false;

  Elapse(2000ms);

  EXPECT_THAT(Journal, ElementsAre("Timer1.Enabled false"));
}

TEST_F(NoDataWatchdog, ServesTheFirstModeThatWaits) {
  Start("Report");
  State.LookingForRecording = State.LookingForID = State.LookingForValues = true;
  std::vector<std::string> texts;
  for (int i = 0; i < 4; ++i) {
    Main.Timer1.Enabled = true;
    Elapse(4000ms);
    texts.push_back(DialogText().substr(0, 12));
  }

  EXPECT_THAT(texts, ElementsAre("Building a r", "Recording is", " No data rec", " No data rec"));
  EXPECT_THAT(Journal, Contains("unload IDlook").Times(1));
  EXPECT_FALSE(State.LookingForValues);
}

TEST_F(NoDataWatchdog, ClearsNoFlagOfAnotherMode) {
  Start("Report");
  State.LookingForRecording = State.LookingForID = true;
  State.LookingForScope = State.LookingForValues = State.LookingForPhases = true;

  Elapse(4000ms);

  EXPECT_TRUE(State.LookingForRecording && State.LookingForID);
  EXPECT_TRUE(State.LookingForScope && State.LookingForValues && State.LookingForPhases);
}

TEST_F(NoDataWatchdog, AViewThatEndsKeepsNoOtherViewAlive) {
  Start("LookingForValues");
  State.LookingForScope = true;

  Elapse(2000ms);

  EXPECT_FALSE(State.LookingForValues);
  EXPECT_FALSE(State.LookingForScope);
}

TEST_F(NoDataWatchdog, OpensNoSecondDialogOnTopOfTheFirst) {
  Start("LookingForValues");
  Dialogs.WhileOpen = [&] {
    if (Dialogs.TimedShown.size() == 1) Elapse(30s);
  };

  Elapse(2000ms);

  EXPECT_THAT(Dialogs.TimedShown, SizeIs(1));
  EXPECT_FALSE(Main.Timer1.Enabled);
}

TEST_F(NoDataWatchdog, AHarmlessStopDoesNotKeepTheStepsBack) {
  Capture.StopFailure = Failure(platform::failure::HarmlessStop);
  Start("Report");

  Elapse(4000ms);

  EXPECT_THAT(Dialogs.TimedShown, SizeIs(1));
  EXPECT_FALSE(Main.Timer1.Enabled);
  EXPECT_FALSE(State.CaptureRunning);
}

TEST_F(NoDataWatchdog, SkipsAStepThatFailsAsAHarmlessStop) {
  Start("LookingForRecording");
  Dialogs.WhileOpen = [] { throw Failure(platform::failure::HarmlessStop); };

  Elapse(2000ms);

  EXPECT_THAT(Journal, ElementsAre("stop", "pump", "clear", "pump", "timed box Attention",
                                   "Timer1.Enabled false", "CWButton3.Value false",
                                   "CWButton3.Enabled true", "tab change"));
  EXPECT_THAT(Dialogs.Shown, IsEmpty());
}

TEST_F(NoDataWatchdog, EndsTheProgramAfterAnyOtherFailure) {
  Start("LookingForID");
  ConsumerFailure = Failure(platform::failure::TypeMismatch);

  EXPECT_THROW(Elapse(2000ms), support::SceneEnded);

  EXPECT_THAT(Dialogs.Shown,
              ElementsAre(platform::Message{"unknown...",
                                            "unknown error. \r\nType mismatch\r\n"
                                            "this happens while getting timeout",
                                            platform::Icon::Critical, platform::Buttons::Ok}));
  EXPECT_EQ(Journal.back(), "end");
}

TEST_F(NoDataWatchdog, RunsNoFurtherStepAfterAFailure) {
  Start("LookingForValues");
  Dialogs.WhileOpen = [&] {
    Dialogs.WhileOpen = nullptr;
    throw Failure(platform::failure::OutOfMemory);
  };

  EXPECT_THROW(Elapse(2000ms), support::SceneEnded);

  EXPECT_THAT(Journal, ElementsAre("stop", "pump", "clear", "pump", "timed box Attention",
                                   "box unknown...", "end"));
}

}  // namespace
