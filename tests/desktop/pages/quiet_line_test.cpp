#include "desktop/widgets/quiet_line.h"

#include <QAccessible>
#include <QStackedWidget>
#include <map>

#include "desktop/look/look.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// The quiet lines on their pages.
class QuietLines : public WindowScene {
 protected:
  static constexpr int FirstTab = forms::tab::Values;
  /// A recording waits for two streams.
  static constexpr const char* Long =
      "Waiting for \"VORNIK-SIM-1\": 80120 frames came in, none held this ID. Waiting for "
      "\"VORNIK-SIM-2\": 80120 frames came in, those with this ID are longer than expected: RUN "
      "measures the length anew.";

  QuietLine& Line(int view) { return Find<QuietLine>(Member("QuietLine", view)); }
  QWidget& Page() { return *program_->Window().findChild<QStackedWidget*>()->currentWidget(); }
  /// What stands on the page, without what only holds others.
  QList<QWidget*> Content() {
    QList<QWidget*> content;
    for (QWidget* widget : Page().findChildren<QWidget*>()) {
      const bool holds = !widget->findChildren<QuietLine*>().isEmpty();
      if (widget->isVisible() && !holds) content << widget;
    }
    return content;
  }
  static QRect OnScreen(const QWidget& widget) {
    return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
  }
  std::map<QWidget*, QRect> Places() {
    std::map<QWidget*, QRect> places;
    for (QWidget* widget : Content()) places[widget] = OnScreen(*widget);
    return places;
  }
  static bool Fits(const QuietLine& line) {
    const QRect words = line.fontMetrics().boundingRect(QRect(0, 0, line.width(), 0),
                                                        Qt::TextWordWrap, line.text());
    return words.height() <= line.height() && words.width() <= line.width();
  }
};

TEST_F(QuietLines, LeaveOutTheEndOfATextWithoutRoomAndTellItInTheTip) {
  Start();
  ResizeFrame(QSize(1024, 768));
  ClickTab(FirstTab);
  std::string much;
  for (int i = 0; i < 8; ++i) much += std::string(Long) + " ";
  QuietLine& line = Line(0);
  Form().QuietLine[0].Say(Long);
  ASSERT_TRUE(WaitFor([&] { return line.isVisible(); }));
  EXPECT_FALSE(line.toolTip().contains(QStringLiteral("none held this ID")));
  Form().QuietLine[0].Say(much);
  ASSERT_TRUE(WaitFor([&] { return line.toolTip().contains(QString::fromStdString(much)); }));
  EXPECT_EQ(line.text().toStdString(), much);
  Form().QuietLine[0].Say("short");
  ASSERT_TRUE(WaitFor([&] { return !line.toolTip().contains(QString::fromStdString(much)); }));
}

TEST_F(QuietLines, StandClearOfEverythingAndMoveNothing) {
  Start();
  Form().Text1[3].Text = home_.path().toStdString();
  GoMeasure();
  for (const QSize size : {QSize(1024, 768), QSize(1920, 1080)}) {
    ResizeFrame(size);
    for (int view = 0; view < 4; ++view) {
      ClickTab(FirstTab + view);
      QTest::qWait(50);
      QuietLine& line = Line(view);
      EXPECT_FALSE(line.isVisible());
      const auto before = Places();
      Form().QuietLine[static_cast<std::size_t>(view)].Say(Long);
      ASSERT_TRUE(WaitFor([&] { return line.text() == Long; }));
      QTest::qWait(50);
      EXPECT_TRUE(line.isVisible());
      EXPECT_TRUE(Fits(line)) << view;
      for (const auto& [widget, place] : before) {
        const auto name = widget->objectName().toStdString();
        EXPECT_EQ(OnScreen(*widget), place) << view << " " << name;
        EXPECT_FALSE(place.intersects(OnScreen(line))) << view << " " << name;
      }
      EXPECT_TRUE(OnScreen(Page()).contains(OnScreen(line))) << view;
      Form().QuietLine[static_cast<std::size_t>(view)].Say("");
      EXPECT_FALSE(line.isVisible());
    }
  }
}

TEST_F(QuietLines, OfTheFinderStandsOnSetupAndMovesNothing) {
  Start();
  for (const QSize size : {QSize(1024, 768), QSize(1920, 1080)}) {
    ResizeFrame(size);
    ClickTab(forms::tab::Setup);
    QTest::qWait(50);
    QuietLine& line = Line(5);
    EXPECT_FALSE(line.isVisible());
    const auto before = Places();
    const char* words =
        "12345678 frames were longer than expected and left out: RUN on a view measures the length "
        "anew.";
    Form().QuietLine[5].Say(words);
    ASSERT_TRUE(WaitFor([&] { return line.text() == words; }));
    QTest::qWait(50);
    EXPECT_TRUE(line.isVisible());
    EXPECT_TRUE(Fits(line));
    for (const auto& [widget, place] : before) {
      EXPECT_EQ(OnScreen(*widget), place) << widget->objectName().toStdString();
    }
    EXPECT_TRUE(OnScreen(Page()).contains(OnScreen(line)));
    Form().QuietLine[5].Say("");
  }
}

TEST_F(QuietLines, AreQuietInColour) {
  Start();
  for (int view = 0; view < 4; ++view) {
    EXPECT_EQ(Line(view).palette().color(QPalette::WindowText), look::QuietText) << view;
  }
}

TEST_F(QuietLines, BreakAWordThatIsLongerThanTheLine) {
  QuietLine line(nullptr);
  line.resize(120, 200);
  line.Say(QString(60, u'M'));
  const QImage picture = line.grab().toImage();
  const QColor ground = picture.pixelColor(119, 199);
  bool below = false;
  for (int x = 0; x < 120; ++x) {
    for (int y = line.fontMetrics().height() + 2; y < 200; ++y) {
      below = below || picture.pixelColor(x, y) != ground;
    }
  }
  EXPECT_TRUE(below);
}

TEST_F(QuietLines, TellAScreenReaderTheirWords) {
  Start();
  ClickTab(forms::tab::Values);
  Form().QuietLine[0].Say("Waiting for \"A & B\".");
  ASSERT_TRUE(WaitFor([&] { return !Line(0).text().isEmpty(); }));
  const QAccessibleInterface* line = QAccessible::queryAccessibleInterface(&Line(0));
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->text(QAccessible::Name), "Waiting for \"A & B\".");
}

TEST_F(QuietLines, TellWhatARunWithoutItsStationWaitsFor) {
  Start();
  GoMeasure("NOBODY");
  Click("CWButton4");
  ASSERT_TRUE(WaitFor([&] { return Line(0).isVisible() && !Line(0).text().isEmpty(); }));
  EXPECT_TRUE(Line(0).text().startsWith("Waiting for \"NOBODY\": "))
      << Line(0).text().toStdString();
  EXPECT_TRUE(Line(0).text().endsWith(" frames came in, none held this ID."))
      << Line(0).text().toStdString();
  ClickTab(forms::tab::Setup);
  ClickTab(forms::tab::Values);
  EXPECT_FALSE(Line(0).isVisible());
}

}  // namespace
}  // namespace desktop
