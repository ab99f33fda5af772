// What stands on the page after a report, on the widgets themselves.

#include <QAbstractButton>
#include <QLabel>
#include <QListWidget>
#include <QPainter>

#include "base/shown_text.h"
#include "desktop/widgets/quiet_line.h"
#include "report/report_analysis.h"
#include "window_scene.h"

namespace desktop {
namespace {

namespace row = forms::report_row;

class ReportRowsOnScreen : public WindowScene {
 protected:
  void RunReport() {
    Start();
    ClickTab(forms::tab::Report);
    Click("Command2");
    ASSERT_TRUE(WaitFor([&] { return Form().Command4.Enabled.Get(); }));
  }
  QLabel& Title(std::size_t i) { return Find<QLabel>(Member("Label7", static_cast<int>(i))); }
  QLabel& Value(std::size_t i) { return Find<QLabel>(Member("Label8", static_cast<int>(i))); }
  /// A row that the program writes shows soon.
  void Show(std::size_t i, const std::string& text) {
    Form().Label8[i].Caption = text;
    QTest::qWait(50);
  }
  static QImage Pixels(QWidget& widget) { return widget.grab().toImage(); }
};

TEST_F(ReportRowsOnScreen, ShowWhatTheFrameHeld) {
  RunReport();
  ASSERT_TRUE(WaitFor([&] { return Value(row::StationId).text().startsWith("VORNIK-SIM-"); }));
  for (std::size_t i = 0; i < row::Count; ++i) {
    EXPECT_TRUE(Value(i).isVisible()) << i;
    // A unit tags its frames, and 81 has no character.
    EXPECT_EQ(Value(i).text().toStdString(), platform::Blanked(Form().Label8[i].Caption.Get()))
        << i;
    EXPECT_EQ(Title(i).text().toStdString(), Form().Label7[i].Caption.Get()) << i;
    EXPECT_EQ(Value(i).geometry().center().y(), Title(i).geometry().center().y()) << i;
    EXPECT_TRUE(i == 0 || Title(i).y() > Title(i - 1).y()) << i;
  }
  EXPECT_TRUE(Title(row::Filter).font().bold());
  EXPECT_FALSE(Value(row::Filter).font().bold());
  EXPECT_TRUE(Title(row::Complete).font().underline());
  // The dump begins at the titles and has one pitch.
  QLabel& dump = Value(row::FirstDump);
  EXPECT_EQ(dump.x(), Title(row::FirstDump).x());
  EXPECT_EQ(dump.fontMetrics().horizontalAdvance("iii"),
            dump.fontMetrics().horizontalAdvance("WWW"));
  EXPECT_LE(dump.fontMetrics().horizontalAdvance(dump.text().trimmed()), dump.width());
}

TEST_F(ReportRowsOnScreen, HideWithTheirLineWhereTheFrameWasTheOtherStations) {
  Start();
  GoMeasure("NOBODY");
  ClickTab(forms::tab::Report);
  Click("Command2");
  ASSERT_TRUE(WaitFor([&] { return Form().Command4.Enabled.Get(); }));
  auto& line = Find<QuietLine>(Member("QuietLine", 4));
  for (int entry = 0; entry < 2; ++entry) {
    ASSERT_TRUE(WaitFor([&] { return line.text().contains("not by \"NOBODY\""); })) << entry;
    EXPECT_TRUE(line.isVisible());
    EXPECT_FALSE(Value(row::Source).isVisible());
    EXPECT_TRUE(Value(row::StationId).isVisible());
    ResizeFrame(entry == 0 ? QSize(1280, 900) : QSize(1024, 768));
    ClickTab(forms::tab::Setup);
    ClickTab(forms::tab::Report);
  }
}

TEST_F(ReportRowsOnScreen, LeaveARoomForBytesWithoutACharacter) {
  RunReport();
  const std::string bytes("81 8D 8F 90 9D AD 7F 1F ");
  Show(row::FirstDump, "00: " + bytes + packetroutines::HexLineText(bytes, code_));
  Show(row::FirstDump + 1, "00: " + bytes + std::string(16, ' '));
  // Nothing stands in their places, and what follows them keeps its own.
  EXPECT_EQ(Value(row::FirstDump).text(), Value(row::FirstDump + 1).text());
  EXPECT_EQ(Pixels(Value(row::FirstDump)), Pixels(Value(row::FirstDump + 1)));
}

TEST_F(ReportRowsOnScreen, WriteTheControlCharactersOfAnIdOut) {
  RunReport();
  Show(row::StationId, std::string("MU01\0\n", 6));
  EXPECT_EQ(Value(row::StationId).text(), "MU01\\0\\n");
}

TEST_F(ReportRowsOnScreen, ElideALongIdInItsMiddleAndTellItInTheTip) {
  RunReport();
  const std::string first = std::string(40, 'B') + std::string(24, 'M') + "1";
  const std::string second = std::string(40, 'B') + std::string(24, 'M') + "2";
  for (const std::size_t i : {row::Filter, row::StationId}) {
    Show(i, first);
    const QImage one = Pixels(Value(i));
    EXPECT_EQ(Value(i).toolTip().toStdString(), first) << i;
    Show(i, second);
    EXPECT_NE(Pixels(Value(i)), one) << i;
    Show(i, "MU01");
    EXPECT_EQ(Value(i).toolTip(), "") << i;
  }
}

class StationsOnScreen : public ReportRowsOnScreen {
 protected:
  static constexpr const char* Tip = "select the station ID to aquire his values";
  QAbstractButton& Station(int i) { return Find<QAbstractButton>(Member("Option3", i)); }
};

TEST_F(StationsOnScreen, DifferWhereTheUnitsOfABayDo) {
  Start();
  ClickTab(forms::tab::Values);
  const std::string bay(33, 'B');
  Form().Text1[12].Text = bay + "1";
  Form().Text1[14].Text = bay + "2";
  ClickTab(forms::tab::Report);
  for (int view : {0, 6}) {
    ClickTab(view == 0 ? forms::tab::Values : forms::tab::Report);
    QTest::qWait(50);
    const QImage first = Pixels(Station(view));
    Form().Option3[static_cast<std::size_t>(view)].Caption = bay + "2";
    QTest::qWait(50);
    EXPECT_NE(Pixels(Station(view)), first) << view;
    EXPECT_EQ(Station(view).toolTip().toStdString(), std::string(Tip) + "\n" + bay + "2");
  }
}

TEST_F(StationsOnScreen, HaveTheirOwnTipAloneWhereTheIdIsWhole) {
  Start();
  Form().Text1[12].Text = "MU01";
  ClickTab(forms::tab::Report);
  QTest::qWait(50);
  EXPECT_EQ(Station(6).toolTip(), Tip);
}

TEST_F(StationsOnScreen, WriteControlCharactersOutAndKeepTheFilterExact) {
  const std::string id("MU01\0\n\x01&", 8);
  Start();
  ClickTab(forms::tab::Setup);
  Form().Text1[12].Text = id;
  EXPECT_EQ(Station(6).text(), "MU01\\0\\n\\x01&&");
  // A keystroke in the field takes nothing from what cannot be seen there.
  auto& field = Find<QWidget>(Member("Text1", 12));
  QTest::keyClick(&field, Qt::Key_End);
  QTest::keyClick(&field, Qt::Key_X);
  EXPECT_EQ(Program().Config.Settings.FilterContent[0], id + "x");
  QTest::keyClick(&field, Qt::Key_Backspace);
  EXPECT_EQ(Program().Config.Settings.FilterContent[0], id);
  // The next program reads it from its file as it was.
  QTest::qWait(50);
  program_.reset();
  Build();
  program_->Load();
  EXPECT_EQ(Program().Config.Settings.FilterContent[0], id);
}

class FinderOnScreen : public WindowScene {};

TEST_F(FinderOnScreen, WritesControlCharactersOutAndTakesTheExactId) {
  const std::string id("MU01\0\n", 6);
  Start();
  ClickTab(forms::tab::Setup);
  auto& look = Program().Windows.IDlook;
  QString shown;
  OnDialog([&](QDialog& dialog) {
    look.List1.Items = std::vector<platform::CheckItem>{{id, true}};
    shown = dialog.findChild<QListWidget*>()->item(0)->text();
    dialog.reject();
  });
  Click("Command7");
  EXPECT_EQ(shown, "MU01\\0\\n");
  EXPECT_EQ(Program().Config.Settings.FilterContent[0], id);
}

TEST_F(FinderOnScreen, TheLineOfAPageWritesThemOutToo) {
  Start();
  ClickTab(forms::tab::Values);
  Form().QuietLine[0].Say(std::string("Waiting for \"MU01\0\n\".", 21));
  auto& line = Find<QuietLine>(Member("QuietLine", 0));
  EXPECT_TRUE(WaitFor([&] { return line.text() == "Waiting for \"MU01\\0\\n\"."; }));
}

}  // namespace
}  // namespace desktop
