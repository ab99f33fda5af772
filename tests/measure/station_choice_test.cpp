// The other station is chosen while a view runs: IDs of different length, so that nothing of one
// station's frames lies where the other has it.

#include <gmock/gmock.h>

#include "support/channel_texts.h"
#include "support/scene.h"

namespace {

using support::FrameBytes;
using support::Scene;
using support::SvFrame;
using std::chrono_literals::operator""ms;

constexpr const char* First = "MU01";
constexpr const char* Second = "A-LONGER-NAME";

/// A square wave of `amps` and `kilovolts` as RMS values.
FrameBytes Square(const char* id, int i, int amps, int kilovolts, std::size_t channels = 8) {
  const int sign = i % 2 == 0 ? 1 : -1;
  SvFrame frame(id);
  frame.Count(static_cast<std::uint16_t>(i % 4000)).Channels(channels);
  for (std::size_t k = 0; k < 4; ++k) {
    frame.Raw(k, sign * amps * 1000);
    frame.Raw(k + 4, sign * kilovolts * 100000);
  }
  if (channels == 4) frame.Trailer(FrameBytes(32, 0x11));
  return frame.Bytes();
}
FrameBytes OfFirst(int i) {
  return Square(First, i, 100, 10);
}
FrameBytes OfSecond(int i) {
  return Square(Second, i, 300, 30);
}
/// The other station sends currents alone.
FrameBytes CurrentsOfSecond(int i) {
  return Square(Second, i, 300, 0, 4);
}

/// The other station sends six channels, which is no length that is looked for.
FrameBytes WithoutSamples(int i) {
  return Square(Second, i, 300, 30, 6);
}

class StationChoice : public ::testing::Test {
 protected:
  StationChoice() {
    scene.Start();
    main.Text1[12].Text = First;
    main.Text1[14].Text = Second;
    main.Combo3.ListIndex = 9;
  }
  void Run(std::int16_t tab, platform::CWButton& button) {
    scene.Select(tab);
    button.Value = true;
    scene.Receive(OfSecond(0));
  }
  std::vector<std::string> Readings() const {
    std::vector<std::string> texts;
    for (const platform::Label& value : main.Label5) texts.push_back(value.Caption);
    return texts;
  }

  Scene scene;
  forms::Main& main = scene.Main;
};

const std::vector<std::string> ReadingsOfSecond = {"300", "300", "300", "300",
                                                   "30",  "30",  "30",  "30"};

TEST_F(StationChoice, InABlockBeginsTheBlockAnew) {
  Run(forms::tab::Values, main.CWButton4);
  scene.Receive(200, OfFirst);
  main.Option3[1].Value = true;

  scene.Receive(399, OfSecond);
  EXPECT_EQ(main.Label5[0].Caption, "0");
  scene.Receive(OfSecond(399));

  EXPECT_EQ(Readings(), ReadingsOfSecond);
}

TEST_F(StationChoice, InABlockOfThePhasorsBeginsTheBlockAnew) {
  Run(forms::tab::Phasor, main.CWButton2);
  scene.Receive(200, OfFirst);
  main.Option3[5].Value = true;

  scene.Receive(399, OfSecond);
  EXPECT_EQ(main.Grid1.Cell[1][1], "");
  scene.Receive(OfSecond(399));

  EXPECT_EQ(support::ChannelTexts(main.Grid1, 1), ReadingsOfSecond);
}

TEST_F(StationChoice, InABlockOfTheScopeBeginsTheBlockAnew) {
  Run(forms::tab::Waveforms, main.CWButton1);
  scene.Receive(200, OfFirst);
  main.Option3[3].Value = true;

  scene.Receive(399, OfSecond);
  EXPECT_TRUE(main.CWGraph1.Plots[0].Y.Get().empty());
  scene.Receive(OfSecond(399));

  for (const double value : main.CWGraph1.Plots[0].Y.Get()) EXPECT_EQ(std::abs(value), 300);
}

TEST_F(StationChoice, InRealTimeModeReadsNoValueAtTheOtherStationsPlace) {
  main.Check5.Value = 1;
  Run(forms::tab::Values, main.CWButton4);
  scene.Receive(450, OfFirst);
  ASSERT_EQ(main.Label5[0].Caption, "100");
  main.Option3[1].Value = true;

  for (int i = 0; i < 800; ++i) {
    scene.Receive(OfSecond(i));
    // Rows that are not written yet are 0, and nothing of the first station is left.
    ASSERT_LE(scene.State.RmsValues[0], 300.001) << i;
    const auto row = scene.Block.SignalValues.Row(i % 400);
    ASSERT_EQ(std::abs(row[0]), 300) << i;
  }
  EXPECT_EQ(main.Label5[0].Caption, "300");
  for (std::int32_t row = 0; row < 400; ++row) {
    EXPECT_EQ(std::abs(scene.Block.SignalValues.Row(row)[4]), 30);
  }
}

TEST_F(StationChoice, LeavesNoVoltagesOfTheOtherStationBehindCurrentsAlone) {
  Run(forms::tab::Values, main.CWButton4);
  scene.Receive(400, OfFirst);
  scene.Elapse(100ms);
  scene.Receive(200, OfFirst);
  main.Option3[1].Value = true;

  scene.Receive(400, CurrentsOfSecond);

  EXPECT_EQ(Readings(), (std::vector<std::string>{"300", "300", "300", "300", "0", "0", "0", "0"}));
}

TEST_F(StationChoice, OfOneThatCannotBeLocatedReadsAsSilent) {
  Run(forms::tab::Values, main.CWButton4);
  scene.Receive(200, OfFirst);
  main.Option3[1].Value = true;
  EXPECT_EQ(scene.State.ChannelCount, 0);

  scene.Receive(400, WithoutSamples);

  EXPECT_EQ(Readings(), std::vector<std::string>(8, "0"));
  EXPECT_FALSE(scene.State.SamplesLocated[0]);
  EXPECT_EQ(scene.State.Counters.SilentBlocks, 1U);
}

TEST_F(StationChoice, BetweenTwoBurstsLeavesNothingOfTheOther) {
  Run(forms::tab::Values, main.CWButton4);
  scene.Receive(400, OfFirst);
  ASSERT_FALSE(scene.State.CaptureRunning);
  main.Option3[1].Value = true;
  scene.Elapse(100ms);

  scene.Receive(400, CurrentsOfSecond);

  EXPECT_EQ(Readings(), (std::vector<std::string>{"300", "300", "300", "300", "0", "0", "0", "0"}));
}

TEST_F(StationChoice, BetweenTwoBurstsOfOneThatCannotBeLocatedKeepsTheReadings) {
  Run(forms::tab::Values, main.CWButton4);
  scene.Receive(400, OfFirst);
  main.Option3[1].Value = true;
  scene.Elapse(100ms);

  scene.Receive(400, WithoutSamples);

  EXPECT_EQ(main.Label5[0].Caption, "100") << "of the first station; a silent block shows nothing";
  EXPECT_EQ(scene.State.Counters.SilentBlocks, 1U);
}

TEST_F(StationChoice, InThePumpOfACompleteBlockDropsTheBlock) {
  Run(forms::tab::Values, main.CWButton4);
  scene.Receive(399, OfFirst);
  scene.Events.AtPump(1, [&] {
    main.Option3[1].Value = true;
    scene.Receive(5, OfSecond);
  });

  scene.Receive(OfFirst(399));

  EXPECT_EQ(main.Label5[0].Caption, "0");
  scene.Elapse(100ms);
  scene.Receive(400, OfSecond);
  EXPECT_EQ(Readings(), ReadingsOfSecond);
}

TEST_F(StationChoice, InThePumpOfTheStopDropsTheBlock) {
  Run(forms::tab::Values, main.CWButton4);
  scene.Receive(399, OfFirst);
  scene.Events.AtPump(2, [&] { main.Option3[1].Value = true; });

  scene.Receive(OfFirst(399));

  EXPECT_EQ(main.Label5[0].Caption, "0");
}

TEST_F(StationChoice, WithoutARunKeepsTheLastBlock) {
  Run(forms::tab::Values, main.CWButton4);
  scene.Receive(400, OfFirst);
  scene.Elapse(1000ms);
  main.CWButton4.Value = false;

  main.Option3[1].Value = true;

  EXPECT_EQ(std::abs(scene.Block.SignalValues.Row(0)[0]), 100);
}

}  // namespace
