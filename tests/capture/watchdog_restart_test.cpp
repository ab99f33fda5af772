#include <gmock/gmock.h>

#include <algorithm>

#include "support/failures.h"
#include "support/watchdog_bench.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;

/// A live view between two bursts: its flag and its button stand.
class RestartTimer : public testing::Test, protected support::WatchdogBench {
 protected:
  RestartTimer() {
    Main.CWButton1.Value = true;
    Main.CWButton2.Value = true;
    Main.CWButton4.Value = true;
  }
};

TEST_F(RestartTimer, RestartsTheValuesAfterTheDelayAndAPump) {
  State.LookingForValues = true;

  Restart();

  EXPECT_THAT(Journal,
              ElementsAre("Timer2.Enabled false", "wait 500", "pump", "Timer1.Enabled true", "stop",
                          "pump", "clear", "pump", "start"));
  EXPECT_TRUE(State.CaptureRunning);
}

TEST_F(RestartTimer, RestartsThePhasesAfterTheDelayAndAPump) {
  State.LookingForPhases = true;

  Restart();

  EXPECT_THAT(Journal,
              ElementsAre("Timer2.Enabled false", "wait 500", "pump", "Timer1.Enabled true", "stop",
                          "pump", "clear", "pump", "start"));
}

TEST_F(RestartTimer, RestartsTheScopeAfterTheDelayWithoutAPump) {
  State.LookingForScope = true;

  Restart();

  EXPECT_THAT(Journal, ElementsAre("Timer2.Enabled false", "wait 500", "Timer1.Enabled true",
                                   "stop", "pump", "clear", "pump", "start"));
}

TEST_F(RestartTimer, RestartsTheStreamFinderWithoutAButton) {
  State.LookingForID = true;
  Main.CWButton1.Value = false;
  Main.CWButton2.Value = false;
  Main.CWButton4.Value = false;

  Restart();

  EXPECT_THAT(Journal,
              ElementsAre("Timer2.Enabled false", "wait 500", "pump", "Timer1.Enabled true", "stop",
                          "pump", "clear", "pump", "start"));
}

TEST_F(RestartTimer, RestartsNothingWithoutAMode) {
  Restart();

  EXPECT_THAT(Journal, ElementsAre("Timer2.Enabled false"));
}

TEST_F(RestartTimer, RestartsNoRecordingAndNoReport) {
  State.LookingForRecording = true;
  State.ReportRequested = true;

  Restart();

  EXPECT_THAT(Journal, ElementsAre("Timer2.Enabled false"));
}

TEST_F(RestartTimer, EndsTheScopeWhoseButtonIsOff) {
  State.LookingForScope = true;
  Main.CWButton1.Value = false;

  Restart();

  EXPECT_THAT(Journal, ElementsAre("Timer2.Enabled false"));
}

TEST_F(RestartTimer, EndsTheValuesWhoseButtonIsOff) {
  State.LookingForValues = true;
  Main.CWButton4.Value = false;

  Restart();

  EXPECT_THAT(Journal, ElementsAre("Timer2.Enabled false"));
}

TEST_F(RestartTimer, EndsThePhasesWhoseButtonIsOff) {
  State.LookingForPhases = true;
  Main.CWButton2.Value = false;

  Restart();

  EXPECT_THAT(Journal, ElementsAre("Timer2.Enabled false"));
}

TEST_F(RestartTimer, OneButtonThatIsOffEndsEveryModeThatIsStillSet) {
  State.LookingForScope = State.LookingForValues = State.LookingForID = true;
  Main.CWButton1.Value = false;

  Restart();

  EXPECT_THAT(Journal, ElementsAre("Timer2.Enabled false"));
}

TEST_F(RestartTimer, RestartsEveryModeThatIsSetTheScopeThird) {
  State.LookingForValues = State.LookingForPhases = State.LookingForScope = State.LookingForID =
      true;

  Restart();

  std::vector<std::string> behindWait;
  for (std::size_t i = 0; i + 1 < Journal.size(); ++i) {
    if (Journal[i] == "wait 500") behindWait.push_back(Journal[i + 1]);
  }
  EXPECT_THAT(behindWait, ElementsAre("pump", "pump", "stop", "pump"));
  EXPECT_EQ(std::count(Journal.begin(), Journal.end(), "start"), 4);
}

TEST_F(RestartTimer, AStopInThePumpDoesNotKeepTheStartBack) {
  State.LookingForValues = true;
  Events.AtPump(1, [&] {
    Main.CWButton4.Value = false;
    State.LookingForValues = false;
  });

  Restart();

  EXPECT_EQ(Journal.back(), "start");
  EXPECT_TRUE(State.CaptureRunning);
  EXPECT_TRUE(State.LookingForValues);
}

TEST_F(RestartTimer, AModeThatEndsInThePumpOfAnotherIsNotRestarted) {
  State.LookingForValues = State.LookingForPhases = true;
  Events.AtPump(1, [&] { State.LookingForPhases = false; });

  Restart();

  EXPECT_EQ(std::count(Journal.begin(), Journal.end(), "start"), 1);
}

TEST_F(RestartTimer, WaitsForTheInternalDelay) {
  State.LookingForValues = true;
  Settings.InternalDelay = 750;
  const auto begin = Clock.Now();

  Restart();

  EXPECT_EQ(Clock.Now() - begin, 850ms);
}

TEST_F(RestartTimer, RestartsAtOnceWithoutAnInternalDelay) {
  State.LookingForValues = true;
  Settings.InternalDelay = 0;
  const auto begin = Clock.Now();

  Restart();

  EXPECT_EQ(Clock.Now() - begin, 100ms);
  EXPECT_TRUE(State.CaptureRunning);
}

TEST_F(RestartTimer, FiresOnce) {
  State.LookingForValues = true;
  Restart();
  State.LookingForValues = false;
  Journal.clear();

  Elapse(1s);

  EXPECT_THAT(Journal, IsEmpty());
}

TEST_F(RestartTimer, HasNoTrap) {
  State.LookingForValues = true;
  Events.AtPump(1, [] { throw platform::Failure(platform::failure::SubscriptOutOfRange); });

  EXPECT_EQ(support::FailureOf([&] { Restart(); }), platform::failure::SubscriptOutOfRange);

  EXPECT_THAT(Dialogs.Shown, IsEmpty());
}

class ButtonTimer : public testing::Test, protected support::WatchdogBench {};

TEST_F(ButtonTimer, GivesTheThreeViewButtonsBackAfterOneSecond) {
  for (platform::CWButton* button : {&Main.CWButton1, &Main.CWButton2, &Main.CWButton4}) {
    button->Enabled = false;
  }
  Main.Timer3.Enabled = true;
  Journal.clear();

  Elapse(999ms);
  EXPECT_THAT(Journal, IsEmpty());
  Elapse(1ms);
  EXPECT_THAT(Journal, ElementsAre("CWButton2.Enabled true", "CWButton4.Enabled true",
                                   "CWButton1.Enabled true", "Timer3.Enabled false"));
}

TEST_F(ButtonTimer, LeavesTheRecorderAndTheReportButtonAlone) {
  Main.CWButton3.Enabled = false;
  Main.Command2.Enabled = false;
  Main.Timer3.Enabled = true;

  Elapse(1000ms);

  EXPECT_FALSE(Main.CWButton3.Enabled);
  EXPECT_FALSE(Main.Command2.Enabled);
}

}  // namespace
