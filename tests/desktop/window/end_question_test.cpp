#include <QApplication>
#include <QLabel>
#include <QPushButton>

#include "desktop/widgets/quiet_line.h"
#include "desktop/widgets/tab_bar.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// A recording of the simulated bus, and a hand that touches something else.
class EndQuestion : public WindowScene {
 protected:
  void Record() {
    Start();
    GoMeasure();
    ClickTab(forms::tab::Recorder);
    Click("CWButton3");
    ASSERT_TRUE(WaitFor([this] { return Form().CWButton3.Visible.Get(); }));
  }
  /// The question as it stands on the screen, if it does.
  QDialog* Question() {
    auto* dialog = program_->Window().findChild<QDialog*>("EndQuestion");
    return dialog != nullptr && dialog->isVisible() ? dialog : nullptr;
  }
  void Answer(const char* button) {
    ASSERT_NE(Question(), nullptr);
    QTest::mouseClick(Question()->findChild<QPushButton*>(button), Qt::LeftButton);
  }
  int StripShows() { return Find<TabBar>("TabStrip1").currentIndex() + 1; }
  bool Recording() {
    const auto& state = Program().Acquisition.State;
    return state.LookingForRecording && state.CaptureRunning;
  }
  void ExpectKept() {
    EXPECT_TRUE(Recording());
    EXPECT_EQ(StripShows(), forms::tab::Recorder);
    EXPECT_EQ(Form().TabStrip1.SelectedTab, forms::tab::Recorder);
    EXPECT_EQ(Stored("MainActiveTab"), "5");
    EXPECT_TRUE(Find<QWidget>("CWButton3").isVisible());
  }
};

TEST_F(EndQuestion, StandsInFrontOfARecordingThatGoesOn) {
  Record();
  ClickTab(forms::tab::Values);
  ASSERT_NE(Question(), nullptr);
  EXPECT_TRUE(Question()->isModal());
  ExpectKept();
  const std::string stored = Form().OnDisk[0].Caption;
  EXPECT_TRUE(WaitFor([&] { return Form().OnDisk[0].Caption != stored; })) << "a further ring";
  const auto& remaining = *Question()->findChild<QLabel*>("EndQuestion.Remaining");
  EXPECT_TRUE(WaitFor([&] { return remaining.text().contains("kept; 2"); })) << "it counts down";
  Answer("EndQuestion.Keep");
  EXPECT_EQ(Question(), nullptr);
  ExpectKept();
}

TEST_F(EndQuestion, IsAnsweredByTheMouseAndThePageTellsWhy) {
  Record();
  ClickTab(forms::tab::Values);
  Answer("EndQuestion.End");
  EXPECT_EQ(Question(), nullptr);
  EXPECT_FALSE(Recording());
  EXPECT_EQ(StripShows(), forms::tab::Values);
  EXPECT_EQ(Stored("MainActiveTab"), "2");
  ClickTab(forms::tab::Recorder);
  EXPECT_EQ(Question(), nullptr);
  const auto& line = Find<QuietLine>(Member("QuietLine", 3));
  EXPECT_TRUE(line.isVisible());
  EXPECT_TRUE(WaitFor([&] { return line.text().endsWith(": another page was chosen."); }))
      << line.text().toStdString();
}

TEST_F(EndQuestion, KeepsTheRecordingByReturnAndByEscapeAndByItsCloseBox) {
  Record();
  for (const int answer : {1, 2, 3}) {
    QTest::keyClick(&program_->Window(), Qt::Key_2, Qt::ControlModifier);
    ASSERT_NE(Question(), nullptr) << answer;
    EXPECT_EQ(Question()->focusWidget()->objectName(), "EndQuestion.Keep");
    if (answer == 1) QTest::keyClick(Question(), Qt::Key_Return);
    if (answer == 2) QTest::keyClick(Question(), Qt::Key_Escape);
    if (answer == 3) Question()->close();
    EXPECT_EQ(Question(), nullptr) << answer;
    ExpectKept();
  }
}

TEST_F(EndQuestion, ComesForTheTabThatIsShownAndForItsKey) {
  Record();
  ClickTab(forms::tab::Recorder);
  ASSERT_NE(Question(), nullptr);
  Answer("EndQuestion.Keep");
  QTest::keyClick(&program_->Window(), Qt::Key_5, Qt::ControlModifier);
  ASSERT_NE(Question(), nullptr);
  Answer("EndQuestion.Keep");
  ExpectKept();
}

TEST_F(EndQuestion, ComesOnceForTheCloseBoxAndEndsTheProgram) {
  Record();
  program_->Window().close();
  ASSERT_NE(Question(), nullptr);
  program_->Window().close();
  EXPECT_EQ(program_->Window().findChildren<QDialog*>("EndQuestion").size(), 1);
  EXPECT_TRUE(Recording());
  Answer("EndQuestion.End");
  EXPECT_TRUE(WaitFor([this] { return exitCode_ == 0; }));
}

TEST_F(EndQuestion, ComesForExitAndKeepsTheProgram) {
  Record();
  ClickTab(forms::tab::Exit);
  Answer("EndQuestion.Keep");
  ExpectKept();
  EXPECT_FALSE(exitCode_);
}

TEST_F(EndQuestion, GoesWithARecordingThatEndsByItself) {
  Record();
  ClickTab(forms::tab::Values);
  ASSERT_NE(Question(), nullptr);
  Form().CWButton3.Value = false;
  EXPECT_EQ(Question(), nullptr);
  EXPECT_EQ(StripShows(), forms::tab::Recorder);
}

TEST_F(EndQuestion, DoesNotHoldUpTheEndOfTheSession) {
  Record();
  ClickTab(forms::tab::Values);
  ASSERT_NE(Question(), nullptr);
  program_->EndSession();
  EXPECT_EQ(exitCode_, 0);
}

TEST_F(EndQuestion, TellsAScreenReaderWhatItAsks) {
  Record();
  ClickTab(forms::tab::Values);
  ASSERT_NE(Question(), nullptr);
  EXPECT_TRUE(Question()->accessibleDescription().startsWith("A recording is running since "));
  for (const char* button : {"EndQuestion.Keep", "EndQuestion.End"}) {
    EXPECT_FALSE(Question()->findChild<QPushButton*>(button)->toolTip().isEmpty()) << button;
  }
}

}  // namespace
}  // namespace desktop
