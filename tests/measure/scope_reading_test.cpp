#include <gmock/gmock.h>

#include "scope_scene.h"

namespace {

using platform::PointReading;
using std::chrono::milliseconds;
using support::SineFrame;
using testing::SizeIs;

/// What the graph of the Waveforms view says at one of its samples.
class ScopeReading : public ScopeScene {
 protected:
  void Stop() {
    scene.Elapse(milliseconds(1000));
    main.CWButton1.Value = false;
  }
  void ShowBlock() {
    Run();
    Block(100, 10);
    Stop();
  }
  PointReading At(double x) const { return main.CWGraph1.ReadPoint(x).value(); }
  bool Readable() const { return main.CWGraph1.ReadPoint(20).has_value(); }
  /// Goes to the Setup view for a change and comes back.
  void OnSetup(const std::function<void()>& change) {
    scene.Select(forms::tab::Setup);
    change();
    scene.Select(forms::tab::Waveforms);
  }
};

TEST_F(ScopeReading, TellsTheSampleItsTimeAndTheValueOfEachChannelWithItsUnit) {
  ShowBlock();
  const PointReading reading = At(20);
  EXPECT_EQ(reading.Point, 20);
  EXPECT_EQ(reading.Place, "sample 20, 5.00 ms");
  ASSERT_THAT(reading.Values, SizeIs(8));
  EXPECT_EQ(reading.Values[0].Name, "Current Sensor A");
  EXPECT_EQ(reading.Values[0].Text, "141.4210 A");
  EXPECT_EQ(reading.Values[7].Name, "Voltage Sensor N");
  EXPECT_EQ(reading.Values[7].Text, "14.1421 kV");
  EXPECT_EQ(reading.Values[7].Plot, 7U);
}

TEST_F(ScopeReading, IsThatOfTheNearestSampleAndOfNoneInBetween) {
  ShowBlock();
  EXPECT_EQ(At(19.6).Values[0].Text, At(20).Values[0].Text);
  EXPECT_EQ(At(20.4).Point, 20);
  EXPECT_EQ(At(-3).Point, 0);
  EXPECT_EQ(At(5000).Point, 399);
}

TEST_F(ScopeReading, NamesTheShownChannelsAlone) {
  ShowBlock();
  main.Check2[0].Value = 0;
  ASSERT_THAT(At(20).Values, SizeIs(7));
  EXPECT_EQ(At(20).Values[0].Name, "Current Sensor B");
  EXPECT_EQ(At(20).Values[0].Plot, 1U);
}

TEST_F(ScopeReading, IsTakenWhileTheViewIsStoppedAlone) {
  EXPECT_FALSE(Readable()) << "nothing is plotted yet";
  Run();
  EXPECT_FALSE(Readable());
  Block(100, 10);
  EXPECT_FALSE(Readable()) << "the next block comes";
  EXPECT_FALSE(main.CWGraph1.Readable);
  Stop();
  EXPECT_TRUE(Readable());
  EXPECT_TRUE(main.CWGraph1.Readable);
  Run();
  EXPECT_FALSE(main.CWGraph1.Readable);
}

TEST_F(ScopeReading, IsThatOfThePlottedBlockWhateverAStoppedBurstHasLeft) {
  Run();
  Block(100, 10);
  scene.Elapse(milliseconds(100));
  scene.Receive(200, [](int i) { return SineFrame(i, 900, 90); });
  main.CWButton1.Value = false;
  EXPECT_EQ(At(20).Values[0].Text, "141.4210 A");
}

TEST_F(ScopeReading, ItsTimeFollowsTheFrequencyOfTheSettings) {
  ShowBlock();
  EXPECT_DOUBLE_EQ(main.CWGraph1.SecondsPerPoint, 1.0 / 4000);
  OnSetup([&] { main.Text1[forms::setup_field::BaseFrequency].Text = "60"; });
  EXPECT_DOUBLE_EQ(main.CWGraph1.SecondsPerPoint, 1.0 / 4800);
  EXPECT_EQ(At(48).Place, "sample 48, 10.00 ms");
  OnSetup([&] { main.Text1[forms::setup_field::BaseFrequency].Text = "0"; });
  EXPECT_EQ(main.CWGraph1.SecondsPerPoint, 0.0);
  EXPECT_EQ(At(48).Place, "sample 48") << "no time without a frequency";
}

TEST_F(ScopeReading, HasTheNumbersOfTheSettings) {
  scene.Numbers = platform::NumberText({',', '.'});
  ShowBlock();
  main.Combo3.ListIndex = 2;
  EXPECT_EQ(At(20).Values[0].Text, "141,42 A");
  EXPECT_EQ(At(21).Place, "sample 21, 5,25 ms");
}

TEST_F(ScopeReading, KeepsTheUnitThatTheBlockWasTakenIn) {
  ShowBlock();
  OnSetup([&] { main.Combo4[0].ListIndex = 1; });
  EXPECT_EQ(At(20).Values[0].Text, "141.4210 A");

  Run();
  Block(100, 10);
  Stop();
  EXPECT_EQ(At(20).Values[0].Text, "141,421.0000 mA");
}

TEST_F(ScopeReading, TellsNoUnitWhereTheBlockMayHaveEither) {
  ShowBlock();
  OnSetup([&] { main.Combo4[0].ListIndex = 1; });
  scene.Select(forms::tab::Values);
  scene.RunValues();
  Block(100, 10);
  scene.Select(forms::tab::Waveforms);
  main.Check2[7].Value = 0;
  EXPECT_EQ(At(20).Values[0].Text, "141,421.0000");
}

}  // namespace
