#include <QLabel>

#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/widgets/reading_field.h"
#include "desktop/widgets/run_button.h"
#include "window_scene.h"

namespace desktop {
namespace {

class Values : public WindowScene {
 protected:
  RunButton& Run() { return Find<RunButton>("CWButton4"); }
  bool CaptureShows() { return Find<QWidget>(Member("Shape12", 0)).isVisible(); }
  /// Waits until the first current reads this text.
  bool WaitForCurrent(const char* text) {
    return WaitFor([&] { return Reading(0) == text; });
  }
};

TEST_F(Values, APressOnRunBringsTheNumbersAndStopEndsThem) {
  Start();
  GoMeasure();
  EXPECT_EQ(Reading(0), "0.0000");
  Click("CWButton4");
  EXPECT_TRUE(Run().Position());
  EXPECT_EQ(Run().text(), "STOP");
  EXPECT_TRUE(WaitForCurrent("400.0000"));
  EXPECT_EQ(Reading(4), "63.5090");
  EXPECT_TRUE(WaitFor([&] { return CaptureShows(); }));

  ASSERT_TRUE(WaitFor([&] { return Run().isEnabled(); }));
  Click("CWButton4");
  EXPECT_FALSE(Run().Position());
  EXPECT_EQ(Run().text(), "RUN");
  EXPECT_FALSE(CaptureShows());
  EXPECT_FALSE(Program().Acquisition.State.CaptureRunning);
}

TEST_F(Values, TheRunButtonIsLockedForASecondAroundEachChange) {
  Start();
  GoMeasure();
  const auto pressed = clock_.Now();
  Click("CWButton4");
  EXPECT_FALSE(Run().isEnabled());
  ASSERT_TRUE(WaitFor([&] { return Run().isEnabled(); }));
  EXPECT_GE(clock_.Now() - pressed, std::chrono::milliseconds(1000));
  EXPECT_TRUE(Run().Position());

  const auto released = clock_.Now();
  Click("CWButton4");
  EXPECT_FALSE(Run().isEnabled());
  EXPECT_FALSE(Run().Position());
  ASSERT_TRUE(WaitFor([&] { return Run().isEnabled(); }));
  EXPECT_GE(clock_.Now() - released, std::chrono::milliseconds(1000));
}

TEST_F(Values, APressOnTheLockedButtonDoesNothing) {
  Start();
  GoMeasure();
  Form().CWButton4.Enabled = false;
  Click("CWButton4");
  EXPECT_FALSE(Form().CWButton4.Value);
}

TEST_F(Values, TheLockedButtonKeepsTheFocus) {
  Start();
  GoMeasure();
  Run().setFocus();
  Form().CWButton4.Enabled = false;
  EXPECT_EQ(program_->Window().focusWidget(), nullptr);
  Form().CWButton4.Enabled = true;
  EXPECT_EQ(program_->Window().focusWidget(), &Run());
}

TEST_F(Values, TheSecondStationShowsItsOwnNumbers) {
  Start();
  GoMeasure();
  Click("CWButton4");
  ASSERT_TRUE(WaitForCurrent("400.0000"));
  Click(Member("Option3", 1));
  EXPECT_TRUE(Find<QAbstractButton>(Member("Option3", 1)).isChecked());
  EXPECT_FALSE(Find<QAbstractButton>(Member("Option3", 0)).isChecked());
  EXPECT_TRUE(WaitForCurrent("150.0000"));
}

TEST_F(Values, AClickOnTheChosenStationLeavesItChosen) {
  Start();
  GoMeasure();
  Click(Member("Option3", 0));
  EXPECT_TRUE(Find<QAbstractButton>(Member("Option3", 0)).isChecked());
}

TEST_F(Values, TheDcValuesStandInTheirFieldsWithoutTouchingTheDigits) {
  Start();
  Form().Check4.Value = 1;
  GoMeasure();
  Click("CWButton4");
  auto& dc = Find<QLabel>(Member("Label12", 8));
  ASSERT_TRUE(WaitFor([&] { return dc.text().startsWith("DC:"); }));
  auto& field = Find<ReadingField>(Member("Label5", 0));
  EXPECT_EQ(dc.parentWidget(), &field);
  EXPECT_EQ(dc.pos(), QPoint(3, 3));
  const double digitTop =
      field.height() * 0.85 - QFontMetricsF(field.FittingFont()).tightBoundingRect("0").height();
  EXPECT_LE(dc.geometry().bottom(), digitTop);
}

TEST_F(Values, WithoutADcValueTheDigitsAndTheBarStandInTheMiddle) {
  Start();
  GoMeasure();
  const auto& field = Find<ReadingField>(Member("Label5", 0));
  // How far what is dark in a strip of the field reaches from its upper and its lower edge.
  const auto margins = [&](int left, int right) {
    const QImage picture = Find<QWidget>(Member("Label5", 0)).grab().toImage();
    int first = picture.height();
    int last = 0;
    for (int y = 3; y < picture.height() - 3; ++y) {
      for (int x = left; x < right; ++x) {
        if (picture.pixelColor(x, y).lightness() > 140) continue;
        first = std::min(first, y);
        last = y;
      }
    }
    return std::pair(first, picture.height() - 1 - last);
  };
  for (const QSize size : {QSize(1024, 768), QSize(1920, 1080), QSize(3840, 2160)}) {
    ResizeFrame(size);
    QTest::qWait(50);
    for (const auto& [above, below] :
         {margins(field.width() / 2, field.width()), margins(3, field.width() / 10)}) {
      EXPECT_NEAR(above, below, 2) << size.width();
      EXPECT_GT(above, 4) << size.width();
    }
  }
  Form().Check4.Value = 1;
  const auto [above, below] = margins(field.width() / 2, field.width());
  EXPECT_GT(above, below + 4) << "the DC value gets its room";
}

TEST_F(Values, TheBarOfAReadingTellsItsKindAndWhetherItIsMeasured) {
  using Life = ReadingField::Life;
  Start();
  GoMeasure();
  for (const auto& [channel, mark] : {std::pair(0, look::CurrentMark), {4, look::VoltageMark}}) {
    auto& field = Find<ReadingField>(Member("Label5", channel));
    for (const auto& [life, colour] : {std::pair(Life::Usual, mark),
                                       {Life::Live, look::RunGreen},
                                       {Life::Resting, look::Edge}}) {
      field.SetLife(life);
      const QImage picture = field.grab().toImage();
      const int middleOfBar = 1 + look::Scaled(6);
      EXPECT_EQ(picture.pixelColor(middleOfBar, picture.height() / 2), QColor(colour)) << channel;
    }
  }
}

TEST_F(Values, ADcValueThatStillStandsKeepsItsRoom) {
  Start();
  Form().Check4.Value = 1;
  GoMeasure();
  Click("CWButton4");
  ASSERT_TRUE(WaitFor([&] { return !Form().Label12[8].Caption.Get().empty(); }));
  ASSERT_TRUE(WaitFor([&] { return Run().isEnabled(); }));
  Click("CWButton4");
  auto& field = Find<QWidget>(Member("Label5", 0));
  const QImage shown = field.grab().toImage();
  Form().Check4.Value = 0;
  EXPECT_EQ(field.grab().toImage(), shown);
}

TEST_F(Values, TheRoomBetweenTheReadingsFollowsTheWindow) {
  Start();
  GoMeasure();
  const auto gap = [&] {
    return Find<QWidget>(Member("Label5", 1)).y() -
           Find<QWidget>(Member("Label5", 0)).geometry().bottom();
  };
  const int first = gap();
  for (const QSize size : {QSize(1366, 768), QSize(1920, 1080), QSize(3840, 2160)}) {
    ResizeFrame(size);
    QTest::qWait(50);
    EXPECT_NEAR(gap(), first * size.height() / 768.0, 3) << size.height();
  }
}

TEST_F(Values, AClickOnAReadingChoosesTheRealTimeChannel) {
  Start();
  GoMeasure();
  Click(Member("Label5", 5));
  EXPECT_EQ(Program().Acquisition.State.RealTimeChannel, 6);
  QTest::keyClick(&Find<QWidget>(Member("Label5", 2)), Qt::Key_Space);
  EXPECT_EQ(Program().Acquisition.State.RealTimeChannel, 3);
}

TEST_F(Values, InRealTimeModeTheChosenReadingFollowsTheStream) {
  Start();
  GoMeasure();
  Click("Check5");
  Click(Member("Label5", 4));
  Click("CWButton4");
  EXPECT_TRUE(WaitFor([&] { return Reading(4) == "63.5090"; }));
  EXPECT_EQ(Reading(0), "0.0000");
  EXPECT_EQ(Reading(5), "0.0000");
}

TEST_F(Values, AReadingTooLongForItsFieldGetsASmallerFont) {
  Start();
  GoMeasure();
  auto& field = Find<ReadingField>(Member("Label5", 0));
  const int usual = field.FittingFont().pixelSize();
  for (const char* text : {"63,509.0000", "999,999,999.0000", "999,999,999,999,999.0000"}) {
    field.SetText(text);
    const QFontMetricsF metrics(field.FittingFont());
    EXPECT_LT(field.FittingFont().pixelSize(), usual) << text;
    // A fifth of the field's height is left blank at both sides.
    EXPECT_LE(metrics.horizontalAdvance(text), field.width() - 0.4 * field.height()) << text;
  }
}

TEST_F(Values, TheFieldsStandWhereTheSizeOfTheWindowPutsThem) {
  Start();
  GoMeasure();
  const auto& first = Find<QWidget>(Member("Label5", 0));
  const auto& second = Find<QWidget>(Member("Label5", 4));
  EXPECT_EQ(first.geometry().left(), 80);
  EXPECT_EQ(second.geometry().left(), 432);
  EXPECT_EQ(first.size(), QSize(273, 65));
  ResizeFrame({2048, 1536});
  QTest::qWait(50);
  EXPECT_EQ(first.geometry().left(), 160);
  EXPECT_EQ(second.geometry().left(), 864);
  EXPECT_EQ(first.size(), QSize(546, 130));
}

TEST_F(Values, AReadingThatChangesOftenIsShownOnceAFrame) {
  Start();
  GoMeasure();
  for (int i = 1; i <= 4000; ++i) Form().Label5[0].Caption = std::to_string(i);
  EXPECT_EQ(Reading(0), "0.0000");
  EXPECT_TRUE(WaitFor([&] { return Reading(0) == "4000"; }));
}

TEST_F(Values, AnAmpersandInAUsersTextIsALetter) {
  Start();
  GoMeasure("A&B");
  Form().Text1[4].Text = "Bay 1 & 2";
  EXPECT_EQ(Find<QAbstractButton>(Member("Option3", 0)).text(), "A&&B");
  auto& caption = Find<QLabel>(Member("Label6", 0));
  EXPECT_TRUE(WaitFor([&] { return caption.text() == "Bay 1 && 2 / [A]"; }));
  EXPECT_EQ(caption.buddy(), &Find<QWidget>(Member("Label5", 0)));
}

TEST_F(Values, WithoutDataTheDialogComesAndTheButtonFallsBack) {
  Start();
  GoMeasure("NOBODY");
  Type(Member("Text1", 14), "");
  ClickTab(forms::tab::Values);
  QString text;
  OnDialog([&](QDialog& dialog) {
    text = dialog.findChild<QLabel*>("Text")->text();
    QTest::mouseClick(dialog.findChild<QAbstractButton*>("Close"), Qt::LeftButton);
  });
  Click("CWButton4");
  ASSERT_TRUE(WaitFor([&] { return !text.isEmpty(); }));
  EXPECT_TRUE(text.startsWith(" No data received!\n\nReasons:")) << text.toStdString();
  EXPECT_TRUE(WaitFor([&] { return Run().isEnabled(); }));
  EXPECT_FALSE(Run().Position());
}

}  // namespace
}  // namespace desktop
