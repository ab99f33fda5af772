// What a run tells of an interface that went away.

#include "capture/waiting_line_scene.h"

namespace packetroutines {
namespace {

using platform::Presence;

class WaitingOutage : public WaitingLineScene {
 protected:
  /// A run in the midst of a block.
  void StartBlock() {
    StartValuesWith(PlainFrame(0));
    Frames(12, PlainFrame(0));
    bench.Elapse(milliseconds(500));
  }
};

TEST_F(WaitingOutage, NamesAnInterfaceThatIsGone) {
  StartBlock();
  bench.Capture.AdapterPresence = Presence::Gone;
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(Line(), "The network interface is gone. Please connect it again.");
  bench.Elapse(seconds(10));
  EXPECT_EQ(Line(), "The network interface is gone. Please connect it again.");
}

TEST_F(WaitingOutage, NamesAnInterfaceThatIsSwitchedOff) {
  StartBlock();
  bench.Capture.AdapterPresence = Presence::SwitchedOff;
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(Line(), "The network interface is switched off. Please switch it on again.");
  bench.Capture.AdapterPresence = Presence::There;
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(Line(), "The network interface is on again.");
}

TEST_F(WaitingOutage, TellsForAWhileThatItIsBackWithWhatItWaitsFor) {
  StartBlock();
  bench.Capture.AdapterPresence = Presence::Gone;
  bench.Elapse(seconds(2));
  bench.Capture.AdapterPresence = Presence::There;
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(Line(),
            "The network interface is back. "
            "Waiting for \"MU01\": 13 frames came in, 12 held this ID, a block takes 400.");
  bench.Elapse(seconds(10));
  EXPECT_EQ(Line(), "Waiting for \"MU01\": 13 frames came in, 12 held this ID, a block takes 400.");
}

TEST_F(WaitingOutage, TellsThatItIsBackBesideTheBlocksThatCome) {
  StartBlock();
  bench.Capture.AdapterPresence = Presence::Gone;
  bench.Elapse(seconds(2));
  bench.Capture.AdapterPresence = Presence::There;
  Frames(388, PlainFrame(0));
  EXPECT_EQ(Line(), "The network interface is back.");
  bench.Elapse(seconds(5));
  EXPECT_EQ(Line(), "The network interface is back.");
}

TEST_F(WaitingOutage, IsNotOverWithFramesThatHadWaitedForABusyProgram) {
  StartBlock();
  bench.Capture.AdapterPresence = Presence::Gone;
  bench.Elapse(milliseconds(500));
  Frames(100, PlainFrame(0));
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(Line(), "The network interface is gone. Please connect it again.");
  Frames(288, PlainFrame(0));
  EXPECT_EQ(Line(), "The network interface is gone. Please connect it again.");
}

TEST_F(WaitingOutage, IsNotAskedForWhileFramesComeNorBetweenTwoBursts) {
  StartBlock();
  bench.Capture.AdapterPresence = Presence::Gone;
  Frames(388, PlainFrame(0));
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(Line(), "");
  ASSERT_FALSE(state.CaptureRunning);
  bench.Elapse(seconds(5));
  EXPECT_EQ(Line(), "");
}

TEST_F(WaitingOutage, IsNoMatterOfTheNextRun) {
  StartBlock();
  bench.Capture.AdapterPresence = Presence::Gone;
  bench.Elapse(seconds(2));
  bench.Main.CWButton4.Value = false;
  bench.Acquisition.StopCapture();
  EXPECT_EQ(Line(), "");
  bench.Capture.AdapterPresence = Presence::There;
  StartBlock();
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(Line(), "");
}

}  // namespace
}  // namespace packetroutines
