#include <QAccessible>
#include <QLabel>

#include "window_scene.h"

namespace desktop {
namespace {

/// What an assistive program reads and sets.
class Accessibility : public WindowScene {
 protected:
  QAccessibleInterface& Of(const QString& name) {
    QAccessibleInterface* found = QAccessible::queryAccessibleInterface(&Find<QWidget>(name));
    if (found == nullptr) throw std::runtime_error("nothing to read of " + name.toStdString());
    return *found;
  }
  /// The number of a reading, as it is read out.
  QString NumberOf(int channel) {
    QAccessibleTextInterface* text = Of(Member("Label5", channel)).textInterface();
    return text == nullptr ? "nothing" : text->text(0, text->characterCount());
  }
};

TEST_F(Accessibility, EveryReadingHasItsNameItsUnitAndItsNumber) {
  Start();
  GoMeasure();
  Click("CWButton4");
  ASSERT_TRUE(WaitFor([this] { return Reading(0) == "400.0000"; }));
  const char* numbers[] = {"400.0000", "400.0000", "400.0000", "1.2000",
                           "63.5090",  "63.5090",  "63.5090",  "0.0950"};
  for (int i = 0; i < 8; ++i) {
    const QAccessibleInterface& reading = Of(Member("Label5", i));
    const QString kind = i < 4 ? "Current Sensor %1 / [A]" : "Voltage Sensor %1 / [kV]";
    EXPECT_EQ(reading.text(QAccessible::Name), kind.arg(QChar("ABCN"[i % 4])));
    EXPECT_EQ(NumberOf(i), numbers[i]) << i;
    EXPECT_EQ(reading.text(QAccessible::Value), numbers[i]) << i;
    EXPECT_EQ(reading.role(), QAccessible::StaticText);
    EXPECT_TRUE(reading.state().readOnly);
  }
}

TEST_F(Accessibility, TheUnitIsTheChosenOne) {
  Start();
  Form().Combo4[1].ListIndex = 1;
  GoMeasure();
  EXPECT_TRUE(WaitFor(
      [&] { return Of(Member("Label5", 4)).text(QAccessible::Name) == "Voltage Sensor A / [V]"; }));
}

TEST_F(Accessibility, ThePartsOfAReadingCanBeRead) {
  Start();
  GoMeasure();
  Form().Label5[2].Caption = "1,234.5";
  ASSERT_TRUE(WaitFor([this] { return Reading(2) == "1,234.5"; }));
  const QAccessibleTextInterface& text = *Of(Member("Label5", 2)).textInterface();
  EXPECT_EQ(text.characterCount(), 7);
  EXPECT_EQ(text.text(2, 5), "234");
  EXPECT_EQ(text.characterRect(0), Of(Member("Label5", 2)).rect());
}

TEST_F(Accessibility, TheRealTimeValueCanBeReadAsItRuns) {
  Start();
  GoMeasure();
  Click("Check5");
  Click(Member("Label5", 4));
  EXPECT_EQ(NumberOf(4), "0.0000");
  Click("CWButton4");
  EXPECT_TRUE(WaitFor([this] { return NumberOf(4) == "63.5090"; }));
  EXPECT_TRUE(Program().Acquisition.State.CaptureRunning);
}

TEST_F(Accessibility, TheNumbersOfTheTableTellTheirChannelsAndUnits) {
  Start();
  Form().Combo4[0].ListIndex = 1;
  Form().Text1[5].Text = "Bay B";
  ClickTab(forms::tab::Phasor);
  Form().Grid1.Cell[2][1] = "7.5";
  Form().Grid1.Cell[2][2] = "-120.000";
  QAccessibleTableInterface* table = Of("Grid1").tableInterface();
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->cellAt(2, 1)->text(QAccessible::Name), "7.5");
  EXPECT_EQ(table->cellAt(2, 1)->text(QAccessible::Description), "Bay B / [mA]");
  EXPECT_EQ(table->cellAt(2, 2)->text(QAccessible::Name), "-120.000");
  EXPECT_EQ(table->cellAt(2, 2)->text(QAccessible::Description), "Bay B / [°]");
  EXPECT_EQ(table->cellAt(5, 1)->text(QAccessible::Description), "Voltage Sensor A / [kV]");
  EXPECT_EQ(table->cellAt(5, 2)->text(QAccessible::Description), "Voltage Sensor A / [°]");
}

TEST_F(Accessibility, AMagnitudeKeepsTheUnitThatItWasMeasuredIn) {
  Start();
  ClickTab(forms::tab::Phasor);
  QAccessibleTableInterface* table = Of("Grid1").tableInterface();
  const auto told = [&] { return table->cellAt(5, 1)->text(QAccessible::Description); };
  Form().Combo4[1].ListIndex = 1;
  EXPECT_EQ(told(), "Voltage Sensor A / [V]") << "nothing was measured yet";
  Form().Grid1.Cell[5][1] = "63,509.0";

  Form().Combo4[1].ListIndex = 0;
  EXPECT_EQ(told(), "Voltage Sensor A / [V]");

  Form().Grid1.Cell[5][1] = "63.5090";
  EXPECT_EQ(told(), "Voltage Sensor A / [kV]");
}

TEST_F(Accessibility, TheProgressOfTheRecorderTellsWhatItCounts) {
  Start();
  ClickTab(forms::tab::Recorder);
  Form().Label10[3].Caption = "12 s / 48000 samples";
  const QAccessibleInterface& counter = Of(Member("Label10", 3));
  EXPECT_TRUE(WaitFor([&] { return counter.text(QAccessible::Name) == "12 s / 48000 samples"; }));
  const auto labels = counter.relations(QAccessible::Label);
  ASSERT_EQ(labels.size(), 1);
  EXPECT_EQ(labels[0].first->text(QAccessible::Name), "Duration of recording / sample counter:");
}

TEST_F(Accessibility, ATextThatIsSetInAFieldOfTheSetupIsAChange) {
  Start();
  ClickTab(forms::tab::Setup);
  for (int i = 0; i < 15; ++i) {
    Of(Member("Text1", i)).setText(QAccessible::Value, "60");
    EXPECT_EQ(Form().Text1[static_cast<std::size_t>(i)].Text, "60") << i;
  }
  EXPECT_EQ(Program().Config.Settings.BaseFrequency, 60.0F);
  EXPECT_EQ(Program().Config.Settings.FilterContent[1], "60");
  EXPECT_TRUE(WaitFor([this] { return Stored("DataName A") == "60"; }));
}

TEST_F(Accessibility, ABoxThatIsTickedByAnAssistiveProgramIsAChange) {
  Start();
  ClickTab(forms::tab::Setup);
  const bool before = Program().Config.Settings.ACDC;

  Of("Check4").actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_NE(Program().Config.Settings.ACDC, before);

  GoMeasure();
  Of(Member("Option3", 1)).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_TRUE(Form().Option3[1].Value);
  EXPECT_FALSE(Find<QAbstractButton>(Member("Option3", 0)).isChecked());
  Of(Member("Option3", 1)).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_TRUE(Form().Option3[1].Value);
  EXPECT_TRUE(Find<QAbstractButton>(Member("Option3", 1)).isChecked());
}

TEST_F(Accessibility, AStateOfABoxThatTheProgramSetsIsNoChange) {
  Start();
  int clicks = 0;
  Form().Check4.Click = [&] { ++clicks; };

  Form().Check4.Value = 2;

  EXPECT_EQ(Form().Check4.Value, 2);
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace desktop
