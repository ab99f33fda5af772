#include <gmock/gmock.h>

#include "support/scene.h"
#include "support/square_frame.h"

namespace {

using support::FrameBytes;
using support::Scene;
using support::SineFrame;
using support::SquareFrame;
using support::SvFrame;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

/// The Values view with the pattern "###,###,##0.00".
class ValuesView : public testing::Test {
 protected:
  ValuesView() {
    scene.Start();
    scene.Main.Combo3.ListIndex = 2;
  }

  std::vector<std::string> Shown() const {
    std::vector<std::string> texts;
    for (const platform::Label& label : scene.Main.Label5) texts.push_back(label.Caption);
    return texts;
  }
  std::vector<std::string> ShownDc() const {
    std::vector<std::string> texts;
    for (std::size_t i = 8; i < 16; ++i) texts.push_back(scene.Main.Label12[i].Caption);
    return texts;
  }
  static FrameBytes Thousand(int i) { return SquareFrame(i, 1000, 63.5); }
  static FrameBytes Silence(int i) { return SquareFrame(i, 0, 0); }

  Scene scene;
};

TEST_F(ValuesView, ShowsTheRmsOfEveryChannelAfterOneBlock) {
  scene.RunValues();
  scene.Receive(400, [](int i) { return SineFrame(i, 1000, 63.5); });

  EXPECT_THAT(Shown(), ElementsAre("1,000.00", "1,000.00", "1,000.00", "1,000.00", "63.50", "63.50",
                                   "63.50", "63.50"));
}

TEST_F(ValuesView, ShowsEachChannelInItsOwnLabel) {
  scene.RunValues();
  scene.Receive(400, [](int i) {
    SvFrame frame;
    for (int channel = 0; channel < 8; ++channel) {
      const int level = (channel + 1) * (channel < 4 ? 1000 : 100000);
      frame.Raw(static_cast<std::size_t>(channel), i % 2 == 0 ? level : -level);
    }
    return frame.Bytes();
  });

  EXPECT_THAT(Shown(), ElementsAre("1.00", "2.00", "3.00", "4.00", "5.00", "6.00", "7.00", "8.00"));
  EXPECT_THAT(scene.State.RmsValues, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
}

TEST_F(ValuesView, ShowsNothingBeforeTheBlockIsComplete) {
  scene.RunValues();
  scene.Receive(399, Thousand);
  EXPECT_EQ(scene.Main.Label5[0].Caption, "0.00");

  scene.Receive(Thousand(399));
  EXPECT_EQ(scene.Main.Label5[0].Caption, "1,000.00");
}

TEST_F(ValuesView, ComputesEveryChannelWhateverTheScopeDraws) {
  for (platform::CheckBox& curve : scene.Main.Check2) curve.Value = 0;
  ASSERT_THAT(scene.Settings.SensorEnabled, Each(0));
  scene.RunValues();
  scene.Receive(400, Thousand);

  EXPECT_THAT(Shown(), ElementsAre("1,000.00", "1,000.00", "1,000.00", "1,000.00", "63.50", "63.50",
                                   "63.50", "63.50"));
}

TEST_F(ValuesView, ShowsAStreamOfFourChannelsWithoutVoltages) {
  const auto frame = [](int i) {
    return SvFrame()
        .Channels(4)
        .AllRaw(i % 2 == 0 ? 1000000 : -1000000)
        .Trailer(std::vector<std::uint8_t>(32))
        .Bytes();
  };
  scene.Main.CWButton4.Value = true;
  scene.Receive(frame(0));
  scene.Receive(400, frame);

  EXPECT_THAT(Shown(), ElementsAre("1,000.00", "1,000.00", "1,000.00", "1,000.00", "0.00", "0.00",
                                   "0.00", "0.00"));
}

TEST_F(ValuesView, ShowsTheFirstEightOfTwelveChannels) {
  const auto frame = [](int i) {
    return SvFrame().Channels(12).AllRaw(i % 2 == 0 ? 1000000 : -1000000).Bytes();
  };
  scene.Main.CWButton4.Value = true;
  scene.Receive(frame(0));
  scene.Receive(400, frame);

  EXPECT_THAT(Shown(), ElementsAre("1,000.00", "1,000.00", "1,000.00", "1,000.00", "10.00", "10.00",
                                   "10.00", "10.00"));
  EXPECT_THAT(scene.Dialogs.Shown, IsEmpty());
}

// Silence.

TEST_F(ValuesView, ASilentStreamShowsZeroAndTheRunGoesOn) {
  scene.Main.Check4.Value = 1;
  scene.RunValues();
  for (int block = 0; block < 3; ++block) scene.ReceiveBlock(Silence);

  EXPECT_EQ(scene.Main.Label5[0].Caption, "0.00");
  EXPECT_EQ(scene.Main.Label12[8].Caption, "");
  EXPECT_EQ(scene.State.BlockCount, 3);
  EXPECT_TRUE(scene.Capture.Running);
}

TEST_F(ValuesView, ASignalThatVanishesLeavesItsLastNumbersStanding) {
  scene.RunValues();
  scene.ReceiveBlock(Thousand);

  scene.ReceiveBlock(Silence);
  scene.ReceiveBlock(Silence);

  EXPECT_EQ(scene.Main.Label5[0].Caption, "1,000.00");
}

TEST_F(ValuesView, ALevelOfATenthIsASignal) {
  scene.RunValues();
  scene.Receive(400, [](int i) { return SquareFrame(i, 0.1, 0); });

  EXPECT_EQ(scene.Main.Label5[0].Caption, "0.10");
}

TEST_F(ValuesView, ALevelBelowATenthIsSilence) {
  scene.RunValues();
  scene.Receive(400, [](int i) { return SquareFrame(i, 0.099, 0.099); });

  EXPECT_EQ(scene.Main.Label5[0].Caption, "0.00");
}

TEST_F(ValuesView, TheLevelOfSilenceIsMeantInTheChosenUnits) {
  scene.Main.Combo4[0].ListIndex = 1;
  scene.RunValues();
  scene.Receive(400, [](int i) { return SquareFrame(i, 0.099, 0); });

  EXPECT_EQ(scene.Main.Label5[0].Caption, "99.00");
}

TEST_F(ValuesView, ABalancedSineIsNoSilence) {
  scene.RunValues();
  scene.Receive(400, [](int i) { return SineFrame(i, 1, 0); });

  EXPECT_EQ(scene.Main.Label5[0].Caption, "1.00");
}

// DC.

TEST_F(ValuesView, ShowsNoDcUntilAsked) {
  scene.RunValues();
  scene.ReceiveBlock([](int i) { return SquareFrame(i, 1000, 63.5, 250); });

  EXPECT_THAT(ShownDc(), Each(""));
}

TEST_F(ValuesView, ShowsTheMeanAsDc) {
  scene.Main.Check4.Value = 1;
  scene.RunValues();
  scene.Receive(400, [](int i) { return SquareFrame(i, 1000, 63.5, 1250); });

  EXPECT_THAT(ShownDc(), Each("DC:1,250.00"));
}

TEST_F(ValuesView, ShowsANegativeDcWithItsSign) {
  scene.Main.Check4.Value = 1;
  scene.RunValues();
  scene.Receive(400, [](int i) { return SquareFrame(i, 1000, 63.5, -0.5); });

  EXPECT_EQ(scene.Main.Label12[8].Caption, "DC:-0.50");
}

TEST_F(ValuesView, AnOffsetDoesNotEnterTheRms) {
  scene.RunValues();
  scene.Receive(400, [](int i) { return SquareFrame(i, 1000, 63.5, 5000); });

  EXPECT_EQ(scene.Main.Label5[0].Caption, "1,000.00");
  EXPECT_EQ(scene.Main.Label5[4].Caption, "63.50");
}

TEST_F(ValuesView, DcComesAndGoesWithTheNextBlock) {
  const auto block = [](int i) { return SquareFrame(i, 1000, 63.5, 250); };
  scene.RunValues();
  scene.ReceiveBlock(block);

  scene.Main.Check4.Value = 1;
  EXPECT_THAT(ShownDc(), Each(""));
  scene.ReceiveBlock(block);
  EXPECT_THAT(ShownDc(), Each("DC:250.00"));

  scene.Main.Check4.Value = 0;
  EXPECT_THAT(ShownDc(), Each("DC:250.00"));
  scene.ReceiveBlock(block);
  EXPECT_THAT(ShownDc(), Each(""));
}

TEST_F(ValuesView, TheReservedLabelsAreNeverWritten) {
  scene.Main.Check4.Value = 1;
  scene.RunValues();
  scene.ReceiveBlock(Thousand);

  for (std::size_t i = 0; i < 8; ++i) EXPECT_EQ(scene.Main.Label12[i].Caption, "") << i;
}

TEST_F(ValuesView, TheDcCheckBoxIsStored) {
  scene.Main.Check4.Value = 1;
  EXPECT_TRUE(scene.Settings.ACDC);
  EXPECT_EQ(scene.Store.Texts["ACDC"], "True");

  scene.Main.Check4.Value = 0;
  EXPECT_FALSE(scene.Settings.ACDC);
  EXPECT_EQ(scene.Store.Texts["ACDC"], "False");
}

// The shown stream.

TEST_F(ValuesView, TheStationChoiceSwapsTheStreams) {
  const auto both = [&](int i) {
    scene.Receive(SquareFrame(i, 100, 1, 0, "MU02"));
    return SquareFrame(i, 1000, 10);
  };
  scene.Main.Text1[14].Text = "MU02";
  scene.RunValues();
  scene.Receive(401, both);
  EXPECT_EQ(scene.Main.Label5[0].Caption, "1,000.00");

  scene.Main.Option3[1].Value = true;
  scene.Elapse(std::chrono::milliseconds(100));
  scene.Receive(402, both);
  EXPECT_EQ(scene.Main.Label5[0].Caption, "100.00");
  EXPECT_EQ(scene.Main.Label5[4].Caption, "1.00");
}

}  // namespace
