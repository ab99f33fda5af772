#include <gmock/gmock.h>

#include "support/failures.h"
#include "support/scene.h"

namespace {

using platform::failure::InvalidPropertyValue;
using support::FailureOf;
using support::Scene;
using support::SvFrame;
using testing::ElementsAre;

class SetupUnits : public testing::Test {
 protected:
  SetupUnits() { scene.Start(); }

  Scene scene;
};

TEST_F(SetupUnits, TheListsHoldTheUnits) {
  EXPECT_THAT(scene.Main.Combo4[0].List.Get(), ElementsAre("A", "mA"));
  EXPECT_THAT(scene.Main.Combo4[1].List.Get(), ElementsAre("kV", "V", "mV"));
}

TEST_F(SetupUnits, TheCurrentUnitHasItsFactorAndItsKey) {
  scene.Main.Combo4[0].ListIndex = 1;
  EXPECT_EQ(scene.Settings.UnitCurrent, 1);
  EXPECT_EQ(scene.Present.CurrentUnitFactor, 1000.0F);
  EXPECT_EQ(scene.Store.Texts["UnitCurrent"], "1");

  scene.Main.Combo4[0].ListIndex = 0;
  EXPECT_EQ(scene.Settings.UnitCurrent, 0);
  EXPECT_EQ(scene.Present.CurrentUnitFactor, 1.0F);
  EXPECT_EQ(scene.Settings.UnitVoltage, 0);
}

TEST_F(SetupUnits, TheVoltageUnitHasItsFactorAndItsKey) {
  scene.Main.Combo4[1].ListIndex = 1;
  EXPECT_EQ(scene.Present.VoltageUnitFactor, 1000.0F);
  scene.Main.Combo4[1].ListIndex = 2;
  EXPECT_EQ(scene.Present.VoltageUnitFactor, 1000000.0F);
  EXPECT_EQ(scene.Settings.UnitVoltage, 2);
  EXPECT_EQ(scene.Store.Texts["UnitVoltage"], "2");
  EXPECT_EQ(scene.Settings.UnitCurrent, 0);
  EXPECT_EQ(scene.Present.CurrentUnitFactor, 1.0F);
}

TEST_F(SetupUnits, TheCaptionsTellTheNewUnitBeforeTheFactorIsSet) {
  float factorAtCaption = 0;
  std::int16_t indexAtCaption = -1;
  scene.Main.Label6[7].Caption.Observe([&] {
    factorAtCaption = scene.Present.VoltageUnitFactor;
    indexAtCaption = scene.Settings.UnitVoltage;
  });

  scene.Main.Combo4[1].ListIndex = 2;

  EXPECT_EQ(scene.Main.Label6[7].Caption, "Voltage Sensor N / [mV]");
  EXPECT_EQ(factorAtCaption, 1.0F);
  EXPECT_EQ(indexAtCaption, 0);
}

TEST_F(SetupUnits, OnlyTheCaptionsOfItsOwnKindTellAUnit) {
  scene.Main.Combo4[0].ListIndex = 1;

  EXPECT_EQ(scene.Main.Label6[0].Caption, "Current Sensor A / [mA]");
  EXPECT_EQ(scene.Main.Label6[3].Caption, "Current Sensor N / [mA]");
  EXPECT_EQ(scene.Main.Label6[4].Caption, "Voltage Sensor A / [kV]");
}

TEST_F(SetupUnits, TheShownNumbersFollowWithTheNextBlock) {
  const auto frame = [](int i) {
    return SvFrame().Raw(0, i % 2 == 0 ? 2500 : -2500).Raw(4, i % 2 == 0 ? 100000 : -100000);
  };
  scene.Main.Combo3.ListIndex = 9;
  scene.RunValues();
  scene.ReceiveBlock([&](int i) { return frame(i).Bytes(); });
  ASSERT_EQ(scene.Main.Label5[0].Caption, "3");

  scene.Main.Combo4[0].ListIndex = 1;
  scene.Main.Combo4[1].ListIndex = 2;
  EXPECT_EQ(scene.Main.Label5[0].Caption, "3");
  EXPECT_EQ(scene.Main.Label5[4].Caption, "1");

  scene.ReceiveBlock([&](int i) { return frame(i).Bytes(); });
  EXPECT_EQ(scene.Main.Label5[0].Caption, "2500");
  EXPECT_EQ(scene.Main.Label5[4].Caption, "1000000");
}

TEST(SetupUnitsStart, TheStoredUnitsAreChosenWithTheirFactors) {
  Scene scene;
  scene.Store.Texts["UnitCurrent"] = "1";
  scene.Store.Texts["UnitVoltage"] = "2";

  scene.App.Load();

  EXPECT_EQ(scene.Main.Combo4[0].Text(), "mA");
  EXPECT_EQ(scene.Main.Combo4[1].Text(), "mV");
  EXPECT_EQ(scene.Present.CurrentUnitFactor, 1000.0F);
  EXPECT_EQ(scene.Present.VoltageUnitFactor, 1000000.0F);
  EXPECT_EQ(scene.Main.Label6[0].Caption, "Current Sensor A / [mA]");
  EXPECT_EQ(scene.Main.Label6[7].Caption, "Voltage Sensor N / [mV]");
}

TEST(SetupUnitsStart, AStoredUnitOutsideItsListFails) {
  Scene scene;
  scene.Store.Texts["UnitVoltage"] = "3";

  EXPECT_EQ(FailureOf([&] { scene.App.Load(); }), InvalidPropertyValue);
}

}  // namespace
