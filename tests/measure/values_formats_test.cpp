#include <gmock/gmock.h>

#include <ostream>

#include "support/scene.h"
#include "support/square_frame.h"

namespace {

using support::Scene;
using support::SquareFrame;
using testing::ElementsAre;

class ValueFormats : public testing::Test {
 protected:
  ValueFormats() { scene.Start(); }

  Scene scene;
};

TEST_F(ValueFormats, AreTenInTheirOrder) {
  EXPECT_THAT(
      scene.Main.Combo3.List.Get(),
      ElementsAre("###,###,##0.0000", "###,###,##0.000", "###,###,##0.00", "###,###,###,##0.0",
                  "###,###,###,##0", "0.0000", "0.000", "0.00", "0.0", "0"));
}

struct Reading {
  std::int32_t Index;
  const char* Rms;
  const char* Zero;
  friend void PrintTo(const Reading& reading, std::ostream* out) { *out << reading.Rms; }
};

class EachFormat : public ValueFormats, public testing::WithParamInterface<Reading> {};

TEST_P(EachFormat, ShowsAMeasuredValueAndZero) {
  scene.Main.Combo3.ListIndex = GetParam().Index;

  scene.RunValues();
  EXPECT_EQ(scene.Main.Label5[0].Caption, GetParam().Zero);
  scene.Receive(400, [](int i) { return SquareFrame(i, 1234.5, 10); });
  EXPECT_EQ(scene.Main.Label5[0].Caption, GetParam().Rms);
}

INSTANTIATE_TEST_SUITE_P(
    Formats, EachFormat,
    testing::Values(Reading{0, "1,234.5000", "0.0000"}, Reading{1, "1,234.500", "0.000"},
                    Reading{2, "1,234.50", "0.00"}, Reading{3, "1,234.5", "0.0"},
                    Reading{4, "1,235", "0"}, Reading{5, "1234.5000", "0.0000"},
                    Reading{6, "1234.500", "0.000"}, Reading{7, "1234.50", "0.00"},
                    Reading{8, "1234.5", "0.0"}, Reading{9, "1235", "0"}));

TEST_F(ValueFormats, PrintTheSeparatorsOfTheLocale) {
  scene.Numbers = platform::NumberText({',', '.'});
  scene.Main.Combo3.ListIndex = 2;
  scene.Main.Check4.Value = 1;

  scene.RunValues();
  scene.Receive(400, [](int i) { return SquareFrame(i, 1234.5, 10, 0.25); });

  EXPECT_EQ(scene.Main.Label5[0].Caption, "1.234,50");
  EXPECT_EQ(scene.Main.Label12[8].Caption, "DC:0,25");
}

TEST_F(ValueFormats, AChoiceIsStoredAndShowsWithTheNextBlock) {
  const auto signal = [](int i) { return SquareFrame(i, 1234.5, 10); };
  scene.RunValues();
  scene.ReceiveBlock(signal);

  scene.Main.Combo3.ListIndex = 8;
  EXPECT_EQ(scene.Settings.UnitResolution, 8);
  EXPECT_EQ(scene.Present.UnitFormat, "0.0");
  EXPECT_EQ(scene.Store.Texts["Unit Resolution"], "8");
  EXPECT_EQ(scene.Main.Label5[0].Caption, "1,234.5000");

  scene.ReceiveBlock(signal);
  EXPECT_EQ(scene.Main.Label5[0].Caption, "1234.5");
}

/// The program started with a stored format.
class StoredFormat : public testing::Test {
 protected:
  void Load(const std::string& index) {
    scene.Store.Texts["Unit Resolution"] = index;
    scene.App.Load();
  }

  Scene scene;
};

TEST_F(StoredFormat, IsChosenAtTheStart) {
  Load("7");

  EXPECT_EQ(scene.Main.Combo3.ListIndex, 7);
  EXPECT_EQ(scene.Present.UnitFormat, "0.00");
  EXPECT_EQ(scene.Main.Label5[0].Caption, "0.00");
}

TEST_F(StoredFormat, BeyondTheListFallsToTheLast) {
  Load("12");

  EXPECT_EQ(scene.Main.Combo3.ListIndex, 9);
  EXPECT_EQ(scene.Settings.UnitResolution, 9);
  EXPECT_EQ(scene.Present.UnitFormat, "0");
  EXPECT_EQ(scene.Store.Texts["Unit Resolution"], "9");
}

TEST_F(StoredFormat, JustBeyondTheListFallsToTheLast) {
  Load("10");

  EXPECT_EQ(scene.Main.Combo3.ListIndex, 9);
}

TEST_F(StoredFormat, BelowTheListRisesToTheFirst) {
  Load("-1");

  EXPECT_EQ(scene.Main.Combo3.ListIndex, 0);
  EXPECT_EQ(scene.Store.Texts["Unit Resolution"], "0");
}

// Captions.

TEST_F(ValueFormats, TheCaptionsAreNameAndUnit) {
  std::vector<std::string> captions;
  for (const platform::Label& label : scene.Main.Label6) captions.push_back(label.Caption);

  EXPECT_THAT(captions, ElementsAre("Current Sensor A / [A]", "Current Sensor B / [A]",
                                    "Current Sensor C / [A]", "Current Sensor N / [A]",
                                    "Voltage Sensor A / [kV]", "Voltage Sensor B / [kV]",
                                    "Voltage Sensor C / [kV]", "Voltage Sensor N / [kV]"));
}

TEST_F(ValueFormats, TheStatusBarTellsTheBaseOfTheRmsAfterASave) {
  scene.Main.StatusBar1.Panels[2].Text = std::string();

  scene.Main.Combo3.ListIndex = 2;

  EXPECT_EQ(scene.Main.StatusBar1.Panels[2].Text, "RMS base: 400 samples");
  EXPECT_EQ(scene.Main.StatusBar1.Panels[2].Key, "Samples for RMS");
  EXPECT_EQ(scene.Main.StatusBar1.Panels[2].ToolTipText, "shows actual state of sampling");
}

TEST_F(ValueFormats, TheViewExplainsItself) {
  EXPECT_EQ(scene.Main.Check5.Caption, "re&al time value");
  EXPECT_EQ(scene.Main.Check5.ToolTipText,
            "activates real time (live stream) ethernet measurement for choosen channel");
  EXPECT_EQ(scene.Main.Label5[7].ToolTipText,
            "while running real-time mode, a click will activate view of RMS value");
  EXPECT_EQ(scene.Main.Label12[0].ToolTipText,
            "as result of quality bits (neutral measured/calculated)");
  EXPECT_EQ(scene.Main.Label12[1].ToolTipText, scene.Main.Label12[0].ToolTipText.Get());
  EXPECT_EQ(scene.Main.Label16.Caption, "Shown Station ID:");
  EXPECT_EQ(scene.Main.Option3[0].ToolTipText, "select the station ID to aquire his values");
  EXPECT_EQ(scene.Main.Check4.Caption, "estimate DC &offset");
}

}  // namespace
