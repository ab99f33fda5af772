#include <QAbstractButton>
#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QTabBar>
#include <QTextDocument>
#include <QToolTip>

#include "window_scene.h"

namespace desktop {
namespace {

/// The words that stand on the screen.
class WindowCaptions : public WindowScene {
 protected:
  /// The texts of the labels inside of a frame.
  QStringList LabelsIn(const QString& frame) {
    QStringList texts;
    for (const auto* label : Find<QWidget>(frame).findChildren<QLabel*>()) texts << label->text();
    return texts;
  }
  QString TextOf(const QString& button) { return Find<QAbstractButton>(button).text(); }
  /// Rests the mouse on a control until its tip comes up, and gives what the tip holds.
  QString TipShownOn(const QString& name) {
    auto& widget = Find<QWidget>(name);
    const QPoint place = widget.rect().center();
    QHelpEvent rest(QEvent::ToolTip, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &rest);
    return QToolTip::text();
  }
};

TEST_F(WindowCaptions, EveryTabHasItsCaptionAndItsTip) {
  Start();
  const std::pair<const char*, const char*> tabs[] = {
      {"&Info", "please read carefully these informations\nInformation"},
      {"&Values", "measured values\nGives after each aqusition the measured values"},
      {"&Phasor", "Phasor diagram\nShows all values in a circle diagram"},
      {"&Waveforms", "Scope\nYou get the waveform like a scope"},
      {"&Recorder", "Long time recording\nThis card starts a long time recording session"},
      {"R&eport", "Report\nGives information about the packet queue"},
      {"&Setup", "Configuration\nThis gives the setting of the program"},
      {"E&xit", "Quit\nImmeadiately stopping the program"}};
  const auto& strip = Find<QTabBar>("TabStrip1");
  ASSERT_EQ(strip.count(), static_cast<int>(std::size(tabs)));
  for (int i = 0; i < strip.count(); ++i) {
    EXPECT_EQ(strip.tabText(i), tabs[i].first);
    EXPECT_EQ(strip.tabToolTip(i), tabs[i].second);
  }
}

TEST_F(WindowCaptions, ThePhasorViewNamesItsScales) {
  Start();
  const QStringList scales = LabelsIn("Frame3");
  for (const char* caption : {"scale factors:", "FS current:", "FS voltage"}) {
    EXPECT_TRUE(scales.contains(QLatin1String(caption))) << caption;
  }
  EXPECT_EQ(TextOf("Check6"), "automati&c");
  EXPECT_TRUE(LabelsIn("Frame2").contains("Phasor Diagram"));
  for (const char* name : {"Check6", "Combo5(0)", "Combo5(1)"}) {
    EXPECT_TRUE(Find<QWidget>("Frame3").isAncestorOf(&Find<QWidget>(name))) << name;
  }
}

TEST_F(WindowCaptions, TheWaveformsViewNamesItsModes) {
  Start();
  EXPECT_TRUE(LabelsIn("Frame1").contains("Graph Modes:"));
  EXPECT_TRUE(LabelsIn("Frame1").contains("Shown Station ID:"));
  EXPECT_EQ(TextOf("sevOption1(0)"), "Pan with mouse");
  EXPECT_EQ(TextOf("sevOption1(1)"), "Zoom with mouse");
  EXPECT_EQ(TextOf("sevOption1(2)"), "autoscaling");
  EXPECT_EQ(TextOf("Command1"), "Print");
}

TEST_F(WindowCaptions, TheSetupViewNamesItsFields) {
  Start();
  const char* captions[] = {"&Network adapter:",
                            "P&acket filter condition:",
                            "Data path for storin&g data:",
                            "Stan&dard printer:",
                            "Packet content filter #&1:",
                            "Packet content filter #&2:",
                            "Decimal p&oint for values:",
                            "&Interval for refreshing data:",
                            "in ms",
                            "Base fre&quency:",
                            "in Hz",
                            "&Unit for current:",
                            "Unit for voltage:",
                            "Names of first group of 4 data sources:",
                            "Names of second group of 4 data sources:",
                            "&Samplings:",
                            "After changing please adjust the interval for refreshing data!"};
  ASSERT_EQ(std::size(captions), Form().Label2.size());
  for (int i = 0; i < static_cast<int>(std::size(captions)); ++i) {
    EXPECT_EQ(Find<QLabel>(Member("Label2", i)).text(), captions[i]);
  }
  EXPECT_EQ(TextOf("Command3"), "&Browse");
  EXPECT_EQ(TextOf("Command7"), "&Find streams");
  EXPECT_EQ(TextOf("Check4"), "estimate DC &offset");
  EXPECT_TRUE(LabelsIn("Frame5").contains("Special functions:"));
  for (const char* name : {"Text1(2)", "Label2(15)", "Label2(16)"}) {
    EXPECT_TRUE(Find<QWidget>("Frame5").isAncestorOf(&Find<QWidget>(name))) << name;
  }
}

TEST_F(WindowCaptions, EveryCaptionOfTheSetupViewStandsBesideItsField) {
  Start();
  const std::pair<int, const char*> fields[] = {
      {0, "Combo1"},     {1, "Text1(0)"},  {2, "Text1(3)"},  {3, "Combo2"},   {4, "Text1(12)"},
      {5, "Text1(14)"},  {6, "Combo3"},    {7, "Text1(13)"}, {9, "Text1(1)"}, {11, "Combo4(0)"},
      {12, "Combo4(1)"}, {13, "Text1(4)"}, {14, "Text1(8)"}, {15, "Text1(2)"}};
  for (const auto& [caption, field] : fields) {
    EXPECT_EQ(Find<QLabel>(Member("Label2", caption)).buddy(), &Find<QWidget>(field)) << field;
  }
}

TEST_F(WindowCaptions, TheCaptionsOfTheFiltersHaveTipsOfTheirOwn) {
  Start();
  const std::pair<int, const char*> tips[] = {
      {1, "filter condition for all packets, receiving network adapter"},
      {4, "additional filter"},
      {5, "additional filter"}};
  for (const auto& [caption, tip] : tips) {
    EXPECT_EQ(Find<QLabel>(Member("Label2", caption)).toolTip(), tip);
  }
}

TEST_F(WindowCaptions, ALongTipKeepsItsDoubleBlanksOnTheScreen) {
  Start();
  ClickTab(forms::tab::Setup);

  QTextDocument shown;
  shown.setHtml(TipShownOn(Member("Text1", 14)));

  EXPECT_EQ(shown.toPlainText(),
            "please, leave it empty, when there is no content to filter (i.e. Station ID)  - also "
            "done by doubleclicking into this area");
}

TEST_F(WindowCaptions, TheSignsOfALongTipAreNoMarkup) {
  Start();
  ClickTab(forms::tab::Setup);
  const std::string tip =
      "a tip of more than sixty characters with <b>signs</b> & \"quotes\" in it";
  Form().Text1[0].ToolTipText = tip;

  QTextDocument shown;
  shown.setHtml(TipShownOn(Member("Text1", 0)));

  EXPECT_EQ(shown.toPlainText().toStdString(), tip);
}

TEST_F(WindowCaptions, AShortTipStandsAsItIs) {
  Start();
  ClickTab(forms::tab::Setup);

  EXPECT_EQ(TipShownOn(Member("Text1", 1)), "base frequency of phase shift calculation");
}

TEST_F(WindowCaptions, ThePanelsOfTheStatusBarHaveTheirTips) {
  Start();
  const char* tips[] = {"shows actual choosen network adapter",
                        "shows actual choosen standard printer", "shows actual state of sampling",
                        "shows errors of ramp count"};
  for (int panel = 1; panel <= 4; ++panel) {
    EXPECT_EQ(TipShownOn(Member("StatusBar1.Panels", panel)), tips[panel - 1]);
  }
}

}  // namespace
}  // namespace desktop
