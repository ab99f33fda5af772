#include <QLabel>
#include <QStackedWidget>
#include <map>

#include "window_scene.h"

namespace desktop {
namespace {

QStringList Members(const char* array, int first, int last) {
  QStringList names;
  for (int i = first; i <= last; ++i) names << Member(array, i);
  return names;
}

class Pages : public WindowScene {
 protected:
  QWidget* Page(int tab) {
    return program_->Window().findChild<QStackedWidget*>()->widget(tab - 1);
  }
};

TEST_F(Pages, HoldTheControlsOfTheirTabs) {
  Start();
  const std::map<int, QStringList> controls = {
      {1, QStringList{"Picture4", "Label4", "Label3(0)"} + Members("Label1", 0, 19)},
      {2, QStringList{"CWButton4", "Label16", "Check5", "Picture1(4)", "Shape12(0)"} +
              Members("Option3", 0, 1) + Members("Label12", 0, 1) + Members("Label12", 8, 15) +
              Members("Label6", 0, 7) + Members("Label5", 0, 7)},
      {3,
       QStringList{"Frame2", "phasordiagram", "Label17", "CWButton2", "Picture1(5)", "Shape12(1)"} +
           Members("Option3", 4, 5)},
      {4, QStringList{"Frame1", "CWButton1", "Command1", "CWGraph1", "Picture1(0)", "Shape12(2)"} +
              Members("Check2", 0, 7) + Members("Option3", 2, 3)},
      {5, QStringList{"Frame4", "Command9", "Picture1(1)", "CWButton3", "CWGraph2", "Shape9",
                      "Label3(5)", "Label3(6)", "Label3(9)", "Label3(28)", "Text3(8)"} +
              Members("Option2", 0, 2) + Members("Option1", 0, 2) + Members("Text3", 2, 5) +
              Members("Label10", 0, 4) + Members("Label3", 22, 24)},
      {6, QStringList{"sevLabel4", "Command2", "Command4", "Picture1(2)", "Shape12(3)"} +
              Members("Option3", 6, 7) + Members("Label7", 0, 22) + Members("Label8", 0, 22)},
      {7, QStringList{"Frame5", "Combo1", "Combo2", "Combo3", "Command3", "Command7", "Check4",
                      "Picture1(3)", "Label13"} +
              Members("Combo4", 0, 1) + Members("Text1", 0, 14) + Members("Label2", 0, 16)}};
  for (const auto& [tab, names] : controls) {
    for (const QString& name : names) {
      const auto found = program_->Window().findChildren<QWidget*>(name);
      ASSERT_EQ(found.size(), 1) << name.toStdString();
      EXPECT_TRUE(Page(tab)->isAncestorOf(found[0])) << name.toStdString() << " on tab " << tab;
    }
  }
}

TEST_F(Pages, TheControlsHaveTheirTips) {
  Start();
  const char* run = "'RUN' starts recording samples acc. to time base; 'STOP' freeze actual view";
  const char* runUntilStop = "'RUN' starts recording samples acc. to time base; 'STOP' stops it";
  const char* leaveEmpty =
      "please, leave it empty, when there is no content to filter (i.e. Station ID)  - also done "
      "by doubleclicking into this area";
  const char* decimals =
      "change number of decimals (i.e. slow computers have problems with a lot of them)";
  std::map<QString, QString> tips = {
      {"Text1(0)",
       "please check help of WinPcap or wireshark to get filter conditions ('ether proto 0x88ba' "
       "is fixed integrated)"},
      {"Text1(1)", "base frequency of phase shift calculation"},
      {"Text1(3)",
       "hint: use content of clipboard to get exact path\n" + home_.filePath("StoredData")},
      {"Text1(12)", "i.e. Station ID, can be set to blank by double click"},
      {"Text1(13)",
       "delay between RMS calculation of one sample set (i.e. 500ms is a good choice)"},
      {"Text1(14)", leaveEmpty},
      {"Text1(2)", leaveEmpty},
      {"Combo1", "choose the adapter which is connected to the IEC61850.9.2LE bus"},
      {"Combo2", "the choosen printer is standard printer while program is running"},
      {"Combo3", decimals},
      {"Combo4(0)", decimals},
      {"Combo4(1)", decimals},
      {"Check4", "after checked, you will find under 'Values' the DC values mentioned"},
      {"Check5", "activates real time (live stream) ethernet measurement for choosen channel"},
      {"Command1",
       "prints the graphs on the standard printer or copies it to the clipboard (right click)"},
      {"Command4", "prints the given report on the choosen standard printer of the programm"},
      {"Command9", "opens the log 'txt' file in your standard text editor"},
      {"CWGraph1",
       "click and hold to pan graph, double click of mouse button will give an auto scale and "
       "right click shows samples"},
      {"CWButton1", run},
      {"CWButton2", run},
      {"CWButton4", run},
      {"CWButton3", runUntilStop},
      {"Command2", runUntilStop},
      {"Text3(8)", "seconds pause after trigger event"},
      {"Label3(0)", "sends an email to the support team of this program"},
      {"Label4", "shows the history of the program"}};
  for (const QString& station : Members("Option3", 0, 7)) {
    tips[station] = "select the station ID to aquire his values";
  }
  for (const auto& [name, tip] : tips) {
    EXPECT_EQ(Find<QWidget>(name).toolTip(), tip) << name.toStdString();
  }
}

TEST_F(Pages, AnAmpersandOfTheInformationPageIsPrintedOnce) {
  Start();
  auto& maker = Find<QLabel>(Member("Label1", 18));
  EXPECT_TRUE(WaitFor([&] { return maker.text() == "Harlengard GmbH & Co. KG"; }));
  EXPECT_TRUE(maker.font().bold());
  auto& heading = Find<QLabel>(Member("Label1", 2));
  EXPECT_TRUE(heading.font().underline());
  EXPECT_FALSE(Find<QWidget>(Member("Label1", 1)).isVisible());
}

TEST_F(Pages, NothingOfAViewReachesBeyondItsPage) {
  Start();
  for (const QSize size : {QSize(1024, 768), QSize(1366, 768), QSize(1920, 1080)}) {
    ResizeFrame(size);
    for (int tab = 1; tab <= 7; ++tab) {
      ClickTab(tab);
      QTest::qWait(1);
      for (const auto* widget : Page(tab)->findChildren<QWidget*>()) {
        const bool named =
            !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_");
        if (!named || !widget->isVisible()) continue;
        QRect place(widget->mapTo(Page(tab), QPoint(0, 0)), widget->size());
        // The Setup view scrolls up and down.
        if (tab == forms::tab::Setup) place.moveTop(0);
        EXPECT_TRUE(Page(tab)->rect().contains(place))
            << widget->objectName().toStdString() << " at " << size.width();
      }
    }
  }
}

TEST_F(Pages, EveryIndicatorIsCentredOnItsRunButton) {
  Start();
  const std::map<int, std::pair<const char*, const char*>> rings = {
      {2, {"Shape12(0)", "CWButton4"}},
      {3, {"Shape12(1)", "CWButton2"}},
      {4, {"Shape12(2)", "CWButton1"}},
      {6, {"Shape12(3)", "Command2"}}};
  for (const QSize size : {QSize(1024, 768), QSize(1600, 1000)}) {
    ResizeFrame(size);
    for (const auto& [tab, names] : rings) {
      ClickTab(tab);
      QTest::qWait(1);
      const auto& ring = Find<QWidget>(names.first);
      const auto& button = Find<QWidget>(names.second);
      EXPECT_EQ(ring.parentWidget(), button.parentWidget()) << names.first;
      EXPECT_EQ(ring.geometry().center(), button.geometry().center())
          << names.first << " at " << size.width();
      EXPECT_GT(ring.width(), button.width()) << names.first;
      EXPECT_GT(ring.height(), button.height()) << names.first;
    }
  }
}

TEST_F(Pages, ALabelShowsTheColourAndTheWeightThatTheProgramGives) {
  Start();
  auto& progress = Find<QLabel>(Member("Label10", 3));
  Form().Label10[3].ForeColor = platform::Rgb{255, 0, 0};
  Form().Label10[3].FontBold = true;
  EXPECT_EQ(progress.palette().color(QPalette::WindowText), QColor(255, 0, 0));
  EXPECT_TRUE(progress.font().bold());
}

TEST_F(Pages, TheCaptionsOfTheRecorderTakeAClick) {
  Start();
  ClickTab(forms::tab::Recorder);
  for (const int caption : {5, 6, 9, 22, 23, 24, 28}) {
    int clicks = 0;
    Form().Label3[static_cast<std::size_t>(caption)].Click = [&] { ++clicks; };
    // A caption that the program hides cannot be clicked; the user sees these.
    Form().Frame4.Visible = true;
    ASSERT_TRUE(Find<QWidget>(Member("Label3", caption)).isVisible()) << caption;

    Click(Member("Label3", caption));
    EXPECT_EQ(clicks, 1) << caption;
    QTest::mouseClick(&Find<QWidget>(Member("Label3", caption)), Qt::RightButton);
    EXPECT_EQ(clicks, 1) << caption;
  }
}

}  // namespace
}  // namespace desktop
