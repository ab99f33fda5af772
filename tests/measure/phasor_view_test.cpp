#include <gmock/gmock.h>

#include "support/channel_texts.h"
#include "support/phasor_bus.h"
#include "support/scene.h"

namespace {

using std::chrono::milliseconds;
using support::FourChannelPhasorFrame;
using support::PhasorFrame;
using support::Scene;
using support::SvFrame;
using testing::ElementsAre;

/// The Phasor view on a bus with three-phase sets.
class PhasorView : public ::testing::Test {
 protected:
  PhasorView() {
    scene.Start();
    scene.Main.Combo3.ListIndex = 2;
    scene.Select(forms::tab::Phasor);
    scene.Journal.clear();
    scene.PhasorPicture.Calls.clear();
  }

  void Run() {
    main.CWButton2.Value = true;
    scene.Receive(SvFrame().Bytes());
  }
  void Block(double amps, double kilovolts) {
    scene.Receive(400, [&](int i) { return PhasorFrame(i, amps, kilovolts, 30); });
  }
  void Stop() {
    scene.Elapse(milliseconds(1000));
    main.CWButton2.Value = false;
    scene.Elapse(milliseconds(1000));
  }
  bool Printed(const std::string& text) const {
    const auto& calls = scene.PhasorPicture.Calls;
    return std::find(calls.begin(), calls.end(), "print " + text) != calls.end();
  }
  /// The text was printed and not cleared since.
  bool Stands(const std::string& text) const {
    const auto& calls = scene.PhasorPicture.Calls;
    const auto cleared = std::find(calls.rbegin(), calls.rend(), "clear");
    return std::find(calls.rbegin(), cleared, "print " + text) != cleared;
  }
  /// The lines from the centre in the colour of voltages, in their order.
  std::vector<std::string> VoltageShafts() const {
    std::vector<std::string> shafts;
    for (const std::string& call : scene.PhasorPicture.Calls) {
      if (call.starts_with("line (0,0)") && call.ends_with(" 0/255/0")) shafts.push_back(call);
    }
    return shafts;
  }
  std::vector<std::string> Table(std::size_t column) const {
    return support::ChannelTexts(scene.Main.Grid1, column);
  }

  Scene scene;
  forms::Main& main = scene.Main;
};

TEST_F(PhasorView, ShowsABlockInPictureAndTable) {
  Run();
  Block(400, 63.5);

  EXPECT_EQ(main.Grid1.Cell[1][1], "400.00");
  EXPECT_EQ(main.Grid1.Cell[1][2], "-30.000");
  EXPECT_EQ(main.Grid1.Cell[6][2], "-120.000");
  EXPECT_EQ(main.Grid1.Cell[7][2], "120.000");
  EXPECT_TRUE(Printed("FS current=500 (62.5)A"));
  EXPECT_TRUE(Printed("FS voltage=150 (18.75)kV"));
}

TEST_F(PhasorView, ShowsAStreamOfFourChannelsAgainstTheAngleZero) {
  const auto frame = [](int i) { return FourChannelPhasorFrame(i, 9000, 30); };
  main.CWButton2.Value = true;
  scene.Receive(frame(0));
  scene.Receive(400, frame);

  EXPECT_THAT(Table(1), ElementsAre("9,000.00", "9,000.00", "9,000.00", "90.00", "0.00", "0.00",
                                    "0.00", "0.00"));
  EXPECT_THAT(Table(2), ElementsAre("-124.500", "115.500", "-4.500", "-124.500", "0.000", "0.000",
                                    "0.000", "0.000"));
  EXPECT_TRUE(Printed("FS voltage=150 (18.75)kV"));
}

TEST_F(PhasorView, PointsU2OfABalancedSetToTheLowerLeft) {
  Run();
  Block(100, 75);

  EXPECT_THAT(VoltageShafts(),
              ElementsAre("line (0,0) (500,0) 0/255/0", "line (0,0) (-250,433) 0/255/0",
                          "line (0,0) (-250,-433) 0/255/0", "line (0,0) (5,0) 0/255/0"));
}

TEST_F(PhasorView, ClearsTheOldPictureWhenARunBegins) {
  Run();
  Block(100, 10);
  Stop();
  ASSERT_TRUE(Stands("I1"));

  main.CWButton2.Value = true;

  EXPECT_FALSE(Stands("I1"));
  EXPECT_TRUE(Stands("90°"));
}

TEST_F(PhasorView, DrawsItsBackgroundBeforeItLocksItsButton) {
  bool drawn = false;
  main.CWButton2.Enabled.Observe([&] { drawn = Stands("0°"); });

  main.CWButton2.Value = true;

  EXPECT_TRUE(drawn);
}

TEST_F(PhasorView, LocksItsButtonAtTheStart) {
  main.Check6.Enabled = false;

  main.CWButton2.Value = true;

  EXPECT_FALSE(main.CWButton2.Enabled);
  EXPECT_TRUE(main.Check6.Enabled);
  EXPECT_EQ(main.CWButton2.ToolTipText, "'Stop' quit actual measurements");
  EXPECT_TRUE(scene.State.LookingForPhases);
  EXPECT_TRUE(scene.State.PacketLengthPending);
  EXPECT_EQ(std::get<std::int32_t>(scene.Capture.Chosen->Settings["BuffSize"]), 262144);
}

TEST_F(PhasorView, MeasuresTheFramesAnewAtEachStart) {
  Run();
  scene.Receive(SvFrame().Bytes());
  Stop();
  ASSERT_FALSE(scene.State.PacketLengthPending);

  main.CWButton2.Value = true;

  EXPECT_TRUE(scene.State.PacketLengthPending);
}

TEST_F(PhasorView, StopsAtItsButton) {
  Run();
  scene.Receive(SvFrame().Bytes());
  scene.Elapse(milliseconds(1000));
  for (auto& scale : main.Combo5) scale.Enabled = true;

  main.CWButton2.Value = false;

  EXPECT_FALSE(main.CWButton2.Enabled);
  EXPECT_FALSE(main.Combo5[0].Enabled);
  EXPECT_FALSE(main.Combo5[1].Enabled);
  EXPECT_EQ(main.CWButton2.ToolTipText, "'Run' starts aquiring samples estimate phase values");
  EXPECT_FALSE(scene.State.LookingForPhases);
  EXPECT_FALSE(scene.Capture.Running);
  scene.Elapse(milliseconds(1000));
  EXPECT_TRUE(main.CWButton2.Enabled);
}

TEST_F(PhasorView, FreesItsFixedScalesAsItStops) {
  main.Check6.Value = 0;
  Run();
  scene.Receive(SvFrame().Bytes());
  for (auto& scale : main.Combo5) scale.Enabled = false;

  Stop();

  EXPECT_TRUE(main.Combo5[0].Enabled);
  EXPECT_TRUE(main.Combo5[1].Enabled);
}

TEST_F(PhasorView, DoesNothingWhileItsButtonIsDisabled) {
  main.CWButton2.Enabled = false;

  main.CWButton2.Value = true;

  EXPECT_FALSE(scene.State.LookingForPhases);
  EXPECT_FALSE(scene.Capture.Running);
}

TEST_F(PhasorView, GoesOnBlockAfterBlock) {
  Run();
  Block(100, 10);
  EXPECT_FALSE(scene.Capture.Running);
  scene.Elapse(milliseconds(100));
  ASSERT_TRUE(scene.Capture.Running);

  Block(200, 10);

  EXPECT_EQ(main.Grid1.Cell[1][1], "200.00");
}

TEST_F(PhasorView, KeepsItsPictureForASilentBlock) {
  Run();
  Block(100, 10);
  scene.Elapse(milliseconds(100));
  scene.PhasorPicture.Calls.clear();

  Block(0, 0);

  EXPECT_TRUE(scene.PhasorPicture.Calls.empty());
  EXPECT_EQ(main.Grid1.Cell[1][1], "100.00");
}

TEST_F(PhasorView, FreesItsScalesWhereTheyAreNotAutomatic) {
  main.Check6.Value = 0;
  EXPECT_TRUE(main.Combo5[0].Enabled);
  EXPECT_TRUE(main.Combo5[1].Enabled);

  main.Check6.Value = 1;
  EXPECT_FALSE(main.Combo5[0].Enabled);
  EXPECT_FALSE(main.Combo5[1].Enabled);
}

TEST_F(PhasorView, TakesFixedScalesWithTheNextBlock) {
  Run();
  main.Check6.Value = 0;
  main.Combo5[0].ListIndex = 4;
  main.Combo5[1].ListIndex = 3;

  Block(100, 10);

  EXPECT_TRUE(Printed("FS current=2000 (250)A"));
  EXPECT_TRUE(Printed("FS voltage=500 (62.5)kV"));
}

TEST_F(PhasorView, DrawsTwiceTheRadiusForTwiceTheFixedScale) {
  Run();
  main.Check6.Value = 0;
  scene.PhasorPicture.Lines.clear();

  Block(2000, 100);

  double longest = 0;
  for (const auto& line : scene.PhasorPicture.Lines) {
    longest = std::max(longest, static_cast<double>(std::hypot(line.To.X, line.To.Y)));
  }
  EXPECT_NEAR(longest, 2000, 0.1);
}

TEST_F(PhasorView, ReportsACurrentAboveTheLadderAgainAndAgain) {
  Run();
  int boxes = 0;
  scene.Dialogs.WhileOpen = [&] {
    if (++boxes == 3) throw support::SceneEnded();
  };

  EXPECT_THROW(Block(10001, 10), support::SceneEnded);

  EXPECT_EQ(scene.LastBox(),
            (platform::Message{"unknown exception",
                               "unknown error\r\nDivision by zerowhile 'onPacket' event",
                               platform::Icon::Critical, platform::Buttons::OkStop}));
  EXPECT_TRUE(Printed("FS current=0 (0)A"));
}

TEST_F(PhasorView, ReportsABaseFrequencyOfZero) {
  main.Text1[1].Text = "0";
  Run();
  scene.Dialogs.WhileOpen = [] { throw support::SceneEnded(); };

  EXPECT_THROW(Block(100, 10), support::SceneEnded);

  EXPECT_EQ(scene.LastBox(),
            (platform::Message{"unknown exception",
                               "unknown error\r\nDivision by zerowhile 'onPacket' event",
                               platform::Icon::Critical}));
}

TEST_F(PhasorView, DrawsItsBackgroundAloneAfterAResize) {
  Run();
  Block(100, 10);
  main.Window.State = platform::WindowState::Normal;
  scene.PhasorPicture.Calls.clear();

  main.Window.TakeSize(20000, 15000);

  ASSERT_FALSE(scene.PhasorPicture.Calls.empty());
  EXPECT_EQ(scene.PhasorPicture.Calls.front(), "clear");
  EXPECT_FALSE(Printed("I1"));
  EXPECT_TRUE(Printed("90°"));

  scene.Elapse(milliseconds(100));
  Block(100, 10);
  EXPECT_TRUE(Printed("I1"));
}

TEST_F(PhasorView, LetsEventsInBeforeItsStartClearsThePicture) {
  Run();
  Block(100, 10);
  Stop();
  bool stood = false;
  bool enabled = false;
  scene.Events.AtPump(1, [&] {
    stood = Stands("I1");
    enabled = main.CWButton2.Enabled;
  });

  main.CWButton2.Value = true;

  EXPECT_TRUE(stood);
  EXPECT_TRUE(enabled);
}

TEST_F(PhasorView, LetsEventsInAndClearsItsFlagBeforeItsStopStopsCapture) {
  Run();
  scene.Receive(SvFrame().Bytes());
  scene.Elapse(milliseconds(1000));
  bool lookingAtHead = false;
  bool lookingAtStop = true;
  scene.Events.AtPump(1, [&] { lookingAtHead = scene.State.LookingForPhases; });
  scene.Events.AtPump(2, [&] { lookingAtStop = scene.State.LookingForPhases; });
  scene.Journal.clear();

  main.CWButton2.Value = false;

  EXPECT_THAT(scene.Journal, ElementsAre("pump", "stop", "pump", "clear", "pump"));
  EXPECT_TRUE(lookingAtHead);
  EXPECT_FALSE(lookingAtStop);
}

TEST_F(PhasorView, LetsEventsInBeforeItFreesItsScales) {
  bool lockedAtPump = false;
  scene.Events.AtPump(1, [&] { lockedAtPump = !main.Combo5[0].Enabled; });

  main.Check6.Value = 0;

  EXPECT_TRUE(lockedAtPump);
  EXPECT_TRUE(main.Combo5[0].Enabled);
}

}  // namespace
