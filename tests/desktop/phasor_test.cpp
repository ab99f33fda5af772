#include <QTableWidget>
#include <QTest>

#include "desktop/choice_box.h"
#include "desktop/picture_pad.h"
#include "window_scene.h"

namespace desktop {
namespace {

class Phasors : public WindowScene {
 protected:
  static constexpr int PhasorTab = 3;

  QString Cell(int row, int column) {
    return Find<QTableWidget>("Grid1").item(row, column)->text();
  }
  void RunToABlock() {
    Start();
    GoMeasure();
    ClickTab(PhasorTab);
    Click("CWButton2");
    ASSERT_TRUE(WaitFor([this] { return !Cell(1, 1).isEmpty(); }));
  }
};

TEST_F(Phasors, ReadTheAnglesAndMagnitudesOfTheSimulatedBus) {
  RunToABlock();

  EXPECT_NEAR(Cell(6, 2).toDouble(), -120, 0.05);
  EXPECT_NEAR(Cell(7, 2).toDouble(), 120, 0.05);
  EXPECT_NEAR(Cell(1, 2).toDouble(), -30, 0.05);
  EXPECT_EQ(Cell(5, 2), "0.000");
  EXPECT_EQ(Cell(1, 1), "400.0000");
  EXPECT_EQ(Cell(5, 1), "63.5090");
}

TEST_F(Phasors, LabelTheirVectorsAndScales) {
  RunToABlock();

  const QString texts = Find<PicturePad>("phasordiagram").Texts();

  for (const char* label : {"90°", "270°", "I1", "I2", "I3", "U1", "U2", "U3",
                            "FS current=500 (62.5)A", "FS voltage=150 (18.75)kV"}) {
    EXPECT_TRUE(texts.contains(QString::fromUtf8(label))) << label;
  }
}

TEST_F(Phasors, StandOnTheBackgroundAloneAfterAResize) {
  RunToABlock();
  ASSERT_TRUE(WaitFor([this] { return Find<QWidget>("CWButton2").isEnabled(); }));
  Click("CWButton2");

  program_->Window().resize(1300, 900);
  QTest::qWait(50);

  const QString texts = Find<PicturePad>("phasordiagram").Texts();
  EXPECT_TRUE(texts.contains(QString::fromUtf8("180°")));
  EXPECT_FALSE(texts.contains("I1"));
}

TEST_F(Phasors, GiveTheScalesFreeWhereTheyAreNotAutomatic) {
  Start();
  ClickTab(PhasorTab);
  EXPECT_FALSE(Find<ChoiceBox>("Combo5(0)").isEnabled());

  Click("Check6");

  EXPECT_TRUE(Find<ChoiceBox>("Combo5(0)").isEnabled());
  EXPECT_TRUE(Find<ChoiceBox>("Combo5(1)").isEnabled());
}

TEST_F(Phasors, KeepThePictureSquareAndInsideItsFrame) {
  Start();
  ClickTab(PhasorTab);
  for (const QSize size : {QSize(1024, 768), QSize(1366, 768), QSize(1600, 1000)}) {
    program_->Window().resize(size);
    QTest::qWait(50);

    auto& picture = Find<PicturePad>("phasordiagram");
    auto& table = Find<QWidget>("Grid1");
    EXPECT_EQ(picture.width() - PicturePad::RightMargin,
              picture.height() - PicturePad::LowerMargin);
    EXPECT_TRUE(picture.parentWidget()->rect().contains(picture.geometry())) << size.width();
    EXPECT_TRUE(table.parentWidget()->rect().contains(table.geometry())) << size.width();
  }
}

}  // namespace
}  // namespace desktop
