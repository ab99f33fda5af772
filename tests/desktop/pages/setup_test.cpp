#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "window_scene.h"

namespace desktop {
namespace {

class Setup : public WindowScene {
 protected:
  void GoSetup() {
    Start();
    ClickTab(forms::tab::Setup);
  }
  QLineEdit& Field(int index) { return Find<QLineEdit>(Member("Text1", index)); }
};

TEST_F(Setup, TypingAFilterChangesTheSettingAndTheStationChoice) {
  GoSetup();
  Type(Member("Text1", 12), "MU-7");
  EXPECT_EQ(Program().Config.Settings.FilterContent[0], "MU-7");
  EXPECT_EQ(Find<QAbstractButton>(Member("Option3", 0)).text(), "MU-7");
  EXPECT_TRUE(WaitFor([&] { return Stored("FilterContentString") == "MU-7"; }));
}

TEST_F(Setup, ADoubleClickEmptiesAContentField) {
  GoSetup();
  Type(Member("Text1", 12), "MU-7");
  QTest::mouseDClick(&Field(12), Qt::LeftButton);
  EXPECT_EQ(Field(12).text(), "");
  EXPECT_EQ(Program().Config.Settings.FilterContent[0], "not yet determinated");
}

TEST_F(Setup, ADoubleClickInAnotherFieldLeavesItsText) {
  GoSetup();
  QTest::mouseDClick(&Field(3), Qt::LeftButton);
  EXPECT_EQ(Field(3).text(), home_.filePath("StoredData"));
}

TEST_F(Setup, AChosenFormatIsTaken) {
  GoSetup();
  auto& list = Find<QComboBox>("Combo3");
  ASSERT_EQ(list.count(), 10);
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Down);
  QTest::keyClick(&list, Qt::Key_Down);
  EXPECT_EQ(Program().Config.Settings.UnitResolution, 2);
  EXPECT_EQ(Program().Config.Present.UnitFormat, "###,###,##0.00");
}

TEST_F(Setup, AChosenUnitShowsInTheCaptionsOfTheReadings) {
  GoSetup();
  auto& list = Find<QComboBox>(Member("Combo4", 0));
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_End);
  EXPECT_EQ(Program().Config.Settings.UnitCurrent, 1);
  auto& caption = Find<QLabel>(Member("Label6", 0));
  EXPECT_TRUE(WaitFor([&] { return caption.text() == "Current Sensor A / [mA]"; }));
}

TEST_F(Setup, TheSimulatedBusIsTheFirstAdapterAndShowsInTheStatusBar) {
  GoSetup();
  EXPECT_EQ(Find<QComboBox>("Combo1").currentText(), "Simulated process bus (built in)");
  EXPECT_TRUE(WaitFor([&] {
    return Find<QLabel>(Member("StatusBar1.Panels", 1)).text() ==
           "Simulated process bus (built in)";
  }));
  EXPECT_EQ(Find<QLabel>(Member("StatusBar1.Panels", 3)).text(), "RMS base: 400 samples");
}

TEST_F(Setup, TheWheelLeavesAListThatWasNotChosenFirst) {
  GoSetup();
  auto& list = Find<QComboBox>("Combo3");
  list.clearFocus();
  QWheelEvent turn(QPointF(5, 5), list.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                   Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&list, &turn);
  EXPECT_EQ(Program().Config.Settings.UnitResolution, 0);
}

TEST_F(Setup, TypingANameStopsAtItsLimit) {
  GoSetup();
  Type(Member("Text1", 4), "123456789012345678901234567890");
  EXPECT_EQ(Field(4).text(), "123456789012345678901");
  EXPECT_EQ(Program().Config.Settings.ChannelName[0], "123456789012345678901");
}

TEST_F(Setup, ALongerNameFromTheProgramIsShownWholeAndCanOnlyGetShorter) {
  GoSetup();
  const std::string name = "a stored name of more than 21 characters";
  Form().Text1[4].Text = name;
  EXPECT_EQ(Field(4).text().toStdString(), name);
  EXPECT_EQ(Program().Config.Settings.ChannelName[0], name);
  Field(4).setFocus();
  Field(4).setCursorPosition(1);
  QTest::keyClicks(&Field(4), "x");
  EXPECT_EQ(Program().Config.Settings.ChannelName[0], name);
  QTest::keyClick(&Field(4), Qt::Key_Delete);
  EXPECT_EQ(Program().Config.Settings.ChannelName[0], "astored name of more than 21 characters");
  QTest::keyClicks(&Field(4), "xy");
  EXPECT_EQ(Program().Config.Settings.ChannelName[0], "astored name of more than 21 characters");
  EXPECT_EQ(Field(4).cursorPosition(), 1);
}

TEST_F(Setup, ACaptionsKeyFocusesItsField) {
  GoSetup();
  Field(1).setFocus();
  QTest::keyClick(&program_->Window(), Qt::Key_G, Qt::AltModifier);
  EXPECT_TRUE(Field(3).hasFocus());
}

TEST_F(Setup, ACheckBoxSetsItsValue) {
  GoSetup();
  Click("Check4");
  EXPECT_TRUE(Program().Config.Settings.ACDC);
  Click("Check4");
  EXPECT_FALSE(Program().Config.Settings.ACDC);
}

TEST_F(Setup, TheAdviceStandsThereOnlyWithAText) {
  GoSetup();
  EXPECT_FALSE(Find<QLabel>("CaptureAdvice").isVisible());
  Form().CaptureAdvice.Caption = "An interface needs rights.";
  EXPECT_TRUE(Find<QLabel>("CaptureAdvice").isVisible());
  Form().CaptureAdvice.Caption = "";
  EXPECT_FALSE(Find<QLabel>("CaptureAdvice").isVisible());
}

TEST_F(Setup, SettingsComeBackAtTheNextStart) {
  GoSetup();
  Type(Member("Text1", 12), "MU, \"7\" \\ ");
  Field(12).insert(QString::fromUtf8("\xC3\xA4"));
  Type(Member("Text1", 13), "250");
  program_.reset();
  Start();
  EXPECT_EQ(Field(12).text().toStdString(), "MU, \"7\" \\ \xC3\xA4");
  EXPECT_EQ(Program().Config.Settings.InternalDelay, 250);
  EXPECT_EQ(Form().TabStrip1.SelectedTab, forms::tab::Setup);
}

TEST_F(Setup, ATextThatIsNoNumberShowsTheRuntimesBoxAndEndsTheProgram) {
  GoSetup();
  Type(Member("Text1", 12), "MU-7");
  QString title;
  QString text;
  OnDialog([&](QDialog& dialog) {
    title = dialog.windowTitle();
    text = dialog.property("text").toString();
    // The broken program gets nothing any more.
    Field(12).insert("x");
    QTest::keyClicks(&Field(12), "y");
    dialog.accept();
  });
  Field(1).setFocus();
  Field(1).selectAll();
  QTest::keyClicks(&Field(1), "x");
  EXPECT_EQ(title, "Vornik");
  EXPECT_EQ(text, "Run-time error '13':\n\nType mismatch");
  EXPECT_EQ(exitCode_, 1);
  EXPECT_EQ(Program().Config.Settings.FilterContent[0], "MU-7");
}

}  // namespace
}  // namespace desktop
