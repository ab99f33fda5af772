#include <gmock/gmock.h>

#include <algorithm>
#include <ostream>

#include "support/failures.h"
#include "support/watchdog_bench.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;

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

TEST_F(RestartTimer, AStopInThePumpDoesNotKeepTheStartBackButEndsItOnTheSpot) {
  State.LookingForValues = true;
  Events.AtPump(1, [&] {
    Main.CWButton4.Value = false;
    State.LookingForValues = false;
  });

  Restart();

  EXPECT_THAT(Journal,
              ElementsAre("Timer2.Enabled false", "wait 500", "pump", "CWButton4.Value false",
                          "Timer1.Enabled true", "stop", "pump", "clear", "pump", "start",
                          "Timer1.Enabled false", "stop", "pump", "clear", "pump"));
  EXPECT_FALSE(State.CaptureRunning);
  EXPECT_FALSE(State.LookingForValues);
  for (const platform::Shape& lamp : Main.Shape12) EXPECT_FALSE(lamp.Visible);
}

TEST_F(RestartTimer, AModeThatEndsInThePumpOfAnotherIsNotRestarted) {
  State.LookingForValues = State.LookingForPhases = true;
  Events.AtPump(1, [&] { State.LookingForPhases = false; });

  Restart();

  EXPECT_EQ(std::count(Journal.begin(), Journal.end(), "start"), 1);
}

/// A mode whose next burst is about to start, and the pump in which the user changes the tab.
struct TabChange {
  const char* Mode;
  bool packetroutines::AcquisitionState::*Flag;
  int Pump;
  friend void PrintTo(const TabChange& change, std::ostream* out) {
    *out << change.Mode << " in pump " << change.Pump;
  }
};

class TabChangeInTheRestart : public RestartTimer, public testing::WithParamInterface<TabChange> {};

TEST_P(TabChangeInTheRestart, EndsTheRun) {
  bool& lookingFor = State.*GetParam().Flag;
  lookingFor = true;
  Events.AtPump(GetParam().Pump, [&] {
    Acquisition.StopCapture();
    ++State.PagesLeft;
    lookingFor = false;
  });

  Restart();

  EXPECT_THAT(Journal, Not(Contains("start")));
  EXPECT_FALSE(State.CaptureRunning);
  EXPECT_FALSE(Capture.Running);
  EXPECT_FALSE(lookingFor);
  for (const platform::Shape& lamp : Main.Shape12) EXPECT_FALSE(lamp.Visible);
  Elapse(60s);
  EXPECT_THAT(Dialogs.TimedShown, IsEmpty());
}

constexpr auto Values = &packetroutines::AcquisitionState::LookingForValues;
constexpr auto Phases = &packetroutines::AcquisitionState::LookingForPhases;
constexpr auto Scope = &packetroutines::AcquisitionState::LookingForScope;
constexpr auto Finder = &packetroutines::AcquisitionState::LookingForID;

// The last two pumps of each are those of the stop in the start; the scope has none before them.
INSTANTIATE_TEST_SUITE_P(Modes, TabChangeInTheRestart,
                         testing::Values(TabChange{"LookingForValues", Values, 1},
                                         TabChange{"LookingForValues", Values, 2},
                                         TabChange{"LookingForValues", Values, 3},
                                         TabChange{"LookingForPhases", Phases, 1},
                                         TabChange{"LookingForPhases", Phases, 2},
                                         TabChange{"LookingForPhases", Phases, 3},
                                         TabChange{"LookingForScope", Scope, 1},
                                         TabChange{"LookingForScope", Scope, 2},
                                         TabChange{"LookingForID", Finder, 1},
                                         TabChange{"LookingForID", Finder, 2},
                                         TabChange{"LookingForID", Finder, 3}));

TEST_F(RestartTimer, ATabChangeInAnEarlierRestartDoesNotEndThisOne) {
  State.LookingForValues = true;
  State.PagesLeft = 3;

  Restart();

  EXPECT_TRUE(State.CaptureRunning);
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

TEST_F(RestartTimer, TakesANegativeInternalDelayForNone) {
  State.LookingForValues = true;
  Settings.InternalDelay = -200;
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
