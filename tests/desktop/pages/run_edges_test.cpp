#include "desktop/look/scale.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// Run button, print button and stations of every view, in windows of every size.
class RunEdges : public WindowScene, public testing::WithParamInterface<QSize> {
 protected:
  QRect PlaceOf(const QString& name) {
    const auto& widget = Find<QWidget>(name);
    return {widget.mapTo(&program_->Window(), QPoint(0, 0)), widget.size()};
  }
  void ExpectSameEdges(int tab, const QString& button, const QStringList& rows) {
    ClickTab(tab);
    QTest::qWait(20);
    const QRect first = PlaceOf(button);
    for (const QString& name : rows) {
      EXPECT_EQ(PlaceOf(name).left(), first.left()) << name.toStdString();
      EXPECT_EQ(PlaceOf(name).right(), first.right()) << name.toStdString();
    }
    widths_ << first.width();
  }
  QList<int> widths_;
};

TEST_P(RunEdges, AreOneLeftAndOneRightEdge) {
  Start();
  Form().Text1[12].Text = "VORNIK-SIM-1";
  Form().Text1[14].Text = "VORNIK-SIM-2";
  ResizeFrame(GetParam());
  ExpectSameEdges(forms::tab::Values, "CWButton4",
                  {"Label16", "Option3(0)", "Option3(1)", "Check5"});
  ExpectSameEdges(forms::tab::Phasor, "CWButton2", {"Label17", "Option3(4)", "Option3(5)"});
  ExpectSameEdges(forms::tab::Waveforms, "CWButton1",
                  {"Option3(2)", "Option3(3)", "Command1", "sevOption1(0)", "Check2(7)"});
  ExpectSameEdges(forms::tab::Recorder, "CWButton3", {});
  ExpectSameEdges(forms::tab::Report, "Command2",
                  {"sevLabel4", "Option3(6)", "Option3(7)", "Command4"});
  for (const int width : widths_) EXPECT_EQ(width, widths_[0]);
}

TEST_P(RunEdges, AreThoseOfTheTableOnThePhasorView) {
  Start();
  ResizeFrame(GetParam());
  ClickTab(forms::tab::Phasor);
  QTest::qWait(20);
  const QRect table = PlaceOf("Grid1");
  EXPECT_EQ(PlaceOf("CWButton2").left(), table.left());
  EXPECT_EQ(PlaceOf("Frame3").right(), table.right());
  EXPECT_GT(PlaceOf("Frame3").left(), PlaceOf("CWButton2").right());
  // It fills its half of the frame.
  const QRect frame = PlaceOf("Frame2");
  EXPECT_LE(frame.right() - table.right(), PlaceOf("phasordiagram").left() - frame.left());
  EXPECT_LE(table.left() - PlaceOf("phasordiagram").right(), look::Scaled(14));
}

TEST_P(RunEdges, TheCardOfTheValuesHugsThem) {
  Start();
  ResizeFrame(GetParam());
  ClickTab(forms::tab::Values);
  QTest::qWait(20);
  const auto& button = Find<QWidget>("CWButton4");
  const QWidget& card = *button.parentWidget()->parentWidget();
  EXPECT_LE(card.width() - button.width(), look::Scaled(52));
}

INSTANTIATE_TEST_SUITE_P(OfTheWindow, RunEdges,
                         testing::Values(QSize(1024, 768), QSize(1366, 768), QSize(1920, 1080),
                                         QSize(2560, 1440), QSize(3840, 2160)),
                         NameOfSize);

}  // namespace
}  // namespace desktop
