// STOP, pressed in each pump of a live view's cycle: the run ends, and nothing of it goes on.

#include <gmock/gmock.h>

#include <ostream>

#include "shell/tab_scene.h"

namespace {

using support::FrameBytes;
using support::SineFrame;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;

struct View {
  const char* Name;
  std::int16_t Tab;
  platform::CWButton& (*Button)(forms::Main& main);
};

const View Values{"Values", 2,
                  [](forms::Main& main) -> platform::CWButton& { return main.CWButton4; }};
const View Phasor{"Phasor", 3,
                  [](forms::Main& main) -> platform::CWButton& { return main.CWButton2; }};
const View Waveforms{"Waveforms", 4,
                     [](forms::Main& main) -> platform::CWButton& { return main.CWButton1; }};

class LiveView : public shell_tests::TabScene {
 protected:
  static FrameBytes Signal(int i) { return SineFrame(i, 100, 10); }
  static FrameBytes OtherSignal(int i) { return SineFrame(i, 300, 30, "MU02"); }

  void Run(const View& view) {
    scene.Select(view.Tab);
    Button(view).Value = true;
    scene.Receive(Signal(0));
    scene.Receive(400, Signal);
    ASSERT_TRUE(main.Timer2.Enabled);
    // The button has come back while the view rests.
    main.Timer3.Enabled = false;
    Button(view).Enabled = true;
  }
  platform::CWButton& Button(const View& view) { return view.Button(main); }
  /// A hand can press what is enabled.
  void Press(const View& view) {
    ASSERT_TRUE(Button(view).Enabled);
    pressed = true;
    Button(view).Value = !Button(view).Value;
  }
  void ExpectNothingRuns() {
    EXPECT_FALSE(scene.Capture.Running);
    EXPECT_FALSE(scene.State.CaptureRunning);
    EXPECT_FALSE(packetroutines::AnyModeSet(scene.State, [](const auto&) { return true; }));
    for (const auto& lamp : main.Shape12) EXPECT_FALSE(lamp.Visible);
    EXPECT_FALSE(main.Timer1.Enabled);
  }
  void ExpectTheRunHasEnded(const View& view) {
    ASSERT_TRUE(pressed);
    EXPECT_FALSE(Button(view).Value);
    ExpectNothingRuns();
    const std::string reading = main.Label5[0].Caption;
    scene.Receive(1000, Signal);
    scene.Elapse(60s);
    ExpectNothingRuns();
    EXPECT_EQ(main.Label5[0].Caption, reading);
    EXPECT_TRUE(scene.Dialogs.TimedShown.empty());
    EXPECT_TRUE(Button(view).Enabled);
  }

  bool pressed = false;
};

struct Moment {
  View Shown;
  int Pump;
  friend void PrintTo(const Moment& moment, std::ostream* out) {
    *out << moment.Shown.Name << " in pump " << moment.Pump;
  }
};

/// The pumps between the end of the pause and the next burst: the one behind the wait, which the
/// scope does not have, and the two of the start's own stop.
class StopInTheRestart : public LiveView, public testing::WithParamInterface<Moment> {
 protected:
  void PressInTheRestart() {
    scene.Events.AtPump(GetParam().Pump, [this] { Press(GetParam().Shown); });
    scene.Elapse(100ms);
  }
};

TEST_P(StopInTheRestart, EndsTheRun) {
  Run(GetParam().Shown);

  PressInTheRestart();

  ExpectTheRunHasEnded(GetParam().Shown);
}

TEST_P(StopInTheRestart, EndsTheRunThatThePausesRealTimeTickWouldKeepMeasuring) {
  Run(GetParam().Shown);
  main.Check5.Value = 1;

  PressInTheRestart();

  ExpectTheRunHasEnded(GetParam().Shown);
}

TEST_P(StopInTheRestart, KeepsTheFrozenBlockOverAChoiceOfTheStation) {
  main.Text1[14].Text = "MU02";
  Run(GetParam().Shown);

  PressInTheRestart();
  scene.Elapse(60s);
  main.Option3[1].Value = true;

  EXPECT_NEAR(scene.Block.SignalValues.Row(20)[0], 141.421, 0.001);
}

TEST_P(StopInTheRestart, LetsTheViewRunAgain) {
  Run(GetParam().Shown);
  PressInTheRestart();
  scene.Elapse(1000ms);

  Run(GetParam().Shown);
  scene.Elapse(100ms);

  EXPECT_TRUE(scene.State.CaptureRunning);
  EXPECT_TRUE(main.Shape12[0].Visible);
}

INSTANTIATE_TEST_SUITE_P(Views, StopInTheRestart,
                         testing::Values(Moment{Values, 1}, Moment{Values, 2}, Moment{Values, 3},
                                         Moment{Phasor, 1}, Moment{Phasor, 2}, Moment{Phasor, 3},
                                         Moment{Waveforms, 1}, Moment{Waveforms, 2}));

/// The pumps of a block that is complete: the first of the block, two of the stop, and those of the
/// view.
class StopInTheBlock : public LiveView, public testing::WithParamInterface<Moment> {};

TEST_P(StopInTheBlock, EndsTheRun) {
  Run(GetParam().Shown);
  scene.Elapse(100ms);
  scene.Receive(399, Signal);
  Button(GetParam().Shown).Enabled = true;
  scene.Events.AtPump(GetParam().Pump, [this] { Press(GetParam().Shown); });

  scene.Receive(Signal(399));

  scene.Elapse(1000ms);
  ExpectTheRunHasEnded(GetParam().Shown);
}

INSTANTIATE_TEST_SUITE_P(Views, StopInTheBlock,
                         testing::Values(Moment{Values, 1}, Moment{Values, 2}, Moment{Values, 3},
                                         Moment{Values, 4}, Moment{Phasor, 1}, Moment{Phasor, 2},
                                         Moment{Phasor, 3}, Moment{Phasor, 4}, Moment{Waveforms, 1},
                                         Moment{Waveforms, 2}, Moment{Waveforms, 3},
                                         Moment{Waveforms, 4}, Moment{Waveforms, 5}));

/// RUN, pressed again in each pump of a STOP where the button is not locked meanwhile.
class RunInTheStopOfTheScope : public LiveView, public testing::WithParamInterface<int> {};

TEST_P(RunInTheStopOfTheScope, Runs) {
  Run(Waveforms);
  scene.Events.AtPump(GetParam(), [this] { Press(Waveforms); });

  main.CWButton1.Value = false;

  ASSERT_TRUE(pressed);
  EXPECT_TRUE(main.CWButton1.Value);
  EXPECT_FALSE(main.Command1.Enabled);
  EXPECT_TRUE(main.Shape12[0].Visible);
  EXPECT_TRUE(scene.Capture.Running);
  scene.Receive(Signal(0));
  scene.Receive(400, Signal);
  EXPECT_EQ(scene.State.BlockCount, 1);
}

INSTANTIATE_TEST_SUITE_P(Pumps, RunInTheStopOfTheScope, testing::Values(1, 2, 3));

/// A tab and its RUN, clicked while the view before still stops: both wait in one queue.
struct Next {
  View Left;
  View Entered;
  int Pump;
  friend void PrintTo(const Next& next, std::ostream* out) {
    *out << "from " << next.Left.Name << " to " << next.Entered.Name << " in pump " << next.Pump;
  }
};

class TabAndRun : public LiveView, public testing::WithParamInterface<Next> {
 protected:
  void QueueTabAndRun() {
    scene.Events.AtPump(GetParam().Pump, [this] {
      scene.Select(GetParam().Entered.Tab);
      Press(GetParam().Entered);
    });
  }
  void ExpectTheNewViewRuns() {
    ASSERT_TRUE(pressed);
    EXPECT_TRUE(Button(GetParam().Entered).Value);
    EXPECT_TRUE(scene.Capture.Running);
    EXPECT_TRUE(main.Shape12[0].Visible);
    scene.Receive(Signal(0));
    scene.Receive(400, Signal);
    EXPECT_TRUE(main.Timer2.Enabled);
    EXPECT_TRUE(scene.Dialogs.TimedShown.empty());
  }
};

class TabAndRunBehindStop : public TabAndRun {};

TEST_P(TabAndRunBehindStop, Runs) {
  Run(GetParam().Left);
  scene.Elapse(100ms);
  scene.Receive(200, Signal);
  Button(GetParam().Left).Enabled = true;
  QueueTabAndRun();

  Button(GetParam().Left).Value = false;

  ExpectTheNewViewRuns();
}

class TabAndRunBehindABlock : public TabAndRun {};

TEST_P(TabAndRunBehindABlock, Runs) {
  Run(GetParam().Left);
  scene.Elapse(100ms);
  scene.Receive(399, Signal);
  QueueTabAndRun();

  scene.Receive(Signal(399));

  ExpectTheNewViewRuns();
  EXPECT_EQ(scene.State.BlockCount, GetParam().Entered.Tab == Phasor.Tab ? 3 : 1);
}

class TabAndRunBehindARestart : public TabAndRun {};

TEST_P(TabAndRunBehindARestart, Runs) {
  Run(GetParam().Left);
  QueueTabAndRun();

  scene.Elapse(100ms);

  ExpectTheNewViewRuns();
}

/// Each view left for each other one, in the pumps that the moment has; for the scope they may be
/// fewer.
std::vector<Next> Nexts(int pumps, int pumpsOfTheScope) {
  std::vector<Next> all;
  for (const View& left : {Values, Phasor, Waveforms}) {
    for (const View& entered : {Values, Phasor, Waveforms}) {
      if (left.Tab == entered.Tab) continue;
      const int last = left.Tab == Waveforms.Tab ? pumpsOfTheScope : pumps;
      for (int pump = 1; pump <= last; ++pump) all.push_back({left, entered, pump});
    }
  }
  return all;
}
INSTANTIATE_TEST_SUITE_P(Views, TabAndRunBehindStop, testing::ValuesIn(Nexts(3, 3)));
INSTANTIATE_TEST_SUITE_P(Views, TabAndRunBehindABlock, testing::ValuesIn(Nexts(4, 5)));
INSTANTIATE_TEST_SUITE_P(Views, TabAndRunBehindARestart, testing::ValuesIn(Nexts(3, 2)));

/// The pumps of a recording's stop: its own first one and the two of capture's stop.
class TabAndRunBehindARecording : public LiveView, public testing::WithParamInterface<int> {};

TEST_P(TabAndRunBehindARecording, Runs) {
  scene.Select(forms::tab::Recorder);
  main.CWButton3.Value = true;
  scene.Receive(Signal(0));
  scene.Receive(4100, Signal);
  scene.Events.AtPump(GetParam(), [this] {
    scene.Select(Waveforms.Tab);
    Press(Waveforms);
  });

  main.CWButton3.Value = false;

  EXPECT_TRUE(main.CWButton1.Value);
  EXPECT_TRUE(scene.Capture.Running);
  scene.Receive(Signal(0));
  scene.Receive(400, Signal);
  EXPECT_EQ(scene.State.BlockCount, 1);
}

INSTANTIATE_TEST_SUITE_P(Pumps, TabAndRunBehindARecording, testing::Values(1, 2, 3));

TEST_F(LiveView, ATabAndItsRunBehindTheWatchdogsStopRun) {
  scene.Select(Values.Tab);
  main.CWButton4.Value = true;
  scene.Events.AtPump(1, [this] {
    scene.Select(Waveforms.Tab);
    Press(Waveforms);
  });

  scene.Elapse(2000ms);

  EXPECT_TRUE(scene.Dialogs.TimedShown.empty());
  EXPECT_TRUE(scene.Capture.Running);
  EXPECT_TRUE(main.Timer1.Enabled);
  scene.Receive(Signal(0));
  scene.Receive(400, Signal);
  EXPECT_EQ(scene.State.BlockCount, 1);
}

}  // namespace
