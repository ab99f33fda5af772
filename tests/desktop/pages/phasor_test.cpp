#include <QTableWidget>
#include <QTest>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>

#include "desktop/widgets/choice_box.h"
#include "desktop/widgets/picture_pad.h"
#include "window_scene.h"

namespace desktop {
namespace {

class Phasors : public WindowScene {
 protected:
  /// Half the side of the picture in units; a full-scale vector is 1000 units long.
  static constexpr double Edge = 1005;
  static constexpr double FullLength = 1000;
  static constexpr double BarbLength = 50;
  static constexpr double BarbAngle = 20;

  PicturePad& Picture() { return Find<PicturePad>("phasordiagram"); }
  QString Cell(int row, int column) {
    return Find<QTableWidget>("Grid1").item(row, column)->text();
  }
  void RunToABlock() {
    Start();
    GoMeasure();
    ClickTab(forms::tab::Phasor);
    Click("CWButton2");
    ASSERT_TRUE(WaitFor([this] { return !Cell(1, 1).isEmpty(); }));
  }
  static QPointF Polar(double degrees, double length) {
    const double radians = degrees * std::numbers::pi / 180;
    return {length * std::cos(radians), length * std::sin(radians)};
  }
  /// How much of a line in units shows in a colour on the picture, from 0 to 1.
  static double ShownOf(const QImage& picture, int side, QPointF from, QPointF to, QColor colour) {
    constexpr int Points = 40;
    int shown = 0;
    for (int i = 0; i <= Points; ++i) {
      const QPointF place = (from + (to - from) * i / Points + QPointF(Edge, Edge)) * side;
      const QPoint pixel = (place / (2 * Edge)).toPoint();
      const QColor there = picture.pixelColor(pixel);
      const bool same = std::abs(there.red() - colour.red()) < 90 &&
                        std::abs(there.green() - colour.green()) < 90 &&
                        std::abs(there.blue() - colour.blue()) < 90;
      if (same) ++shown;
    }
    return static_cast<double>(shown) / Points;
  }
  /// Expects both barbs at the tip of the vector of a row of the table.
  void ExpectHead(int row, double fullScale, QColor colour) {
    const double angle = -Cell(row, 2).toDouble();
    const QPointF tip = Polar(angle, Cell(row, 1).toDouble() / fullScale * FullLength);
    const QImage picture = Picture().grab().toImage();
    for (const double side : {-BarbAngle, BarbAngle}) {
      const QPointF end = tip - Polar(angle + side, BarbLength);
      EXPECT_GT(ShownOf(picture, Picture().Side(), tip, end, colour), 0.5)
          << "row " << row << ", barb at " << side;
    }
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

  const QString texts = Picture().Texts();

  for (const char* label : {"90°", "270°", "I1", "I2", "I3", "U1", "U2", "U3",
                            "FS current=500 (62.5)A", "FS voltage=150 (18.75)kV"}) {
    EXPECT_TRUE(texts.contains(QString::fromUtf8(label))) << label;
  }
}

TEST_F(Phasors, ShowTheHeadsOfTheirVectorsUnderTheLabels) {
  RunToABlock();
  for (const QSize size : {QSize(1024, 768), QSize(1600, 1000)}) {
    ResizeFrame(size);
    ASSERT_TRUE(WaitFor([this] { return Picture().Texts().contains("U3"); })) << size.width();

    for (int current = 1; current <= 3; ++current) ExpectHead(current, 500, QColor(255, 0, 0));
    for (int voltage = 5; voltage <= 7; ++voltage) ExpectHead(voltage, 150, QColor(0, 255, 0));
  }
}

TEST_F(Phasors, StandOnTheBackgroundAloneAfterAResize) {
  RunToABlock();
  ASSERT_TRUE(WaitFor([this] { return Find<QWidget>("CWButton2").isEnabled(); }));
  Click("CWButton2");

  program_->Window().resize(1300, 900);
  QTest::qWait(50);

  const QString texts = Picture().Texts();
  EXPECT_TRUE(texts.contains(QString::fromUtf8("180°")));
  EXPECT_FALSE(texts.contains("I1"));
}

TEST_F(Phasors, GiveTheScalesFreeWhereTheyAreNotAutomatic) {
  Start();
  ClickTab(forms::tab::Phasor);
  EXPECT_FALSE(Find<ChoiceBox>("Combo5(0)").isEnabled());

  Click("Check6");

  EXPECT_TRUE(Find<ChoiceBox>("Combo5(0)").isEnabled());
  EXPECT_TRUE(Find<ChoiceBox>("Combo5(1)").isEnabled());
}

TEST_F(Phasors, KeepThePictureSquareAndInsideItsFrame) {
  Start();
  ClickTab(forms::tab::Phasor);
  for (const QSize size : {QSize(1024, 768), QSize(1366, 768), QSize(1600, 1000)}) {
    ResizeFrame(size);
    QTest::qWait(50);

    const QWidget& frame = Find<QWidget>("Frame2");
    EXPECT_NEAR(frame.width(), 0.85 * size.width(), 1) << size.width();
    EXPECT_NEAR(frame.height(), 0.7 * size.height(), 1) << size.width();
    EXPECT_EQ(Picture().parentWidget(), &frame);
    EXPECT_NEAR(Picture().Side(), 0.8 * frame.height(), 1) << size.width();
    EXPECT_NEAR(Picture().x(), 0.05 * frame.height(), 1) << size.width();
    EXPECT_NEAR(Picture().y(), 0.05 * frame.height(), 1) << size.width();
    for (const char* name : {"phasordiagram", "Grid1", "Frame3", "CWButton2"}) {
      EXPECT_TRUE(frame.rect().contains(Find<QWidget>(name).geometry()))
          << name << " at " << size.width();
    }
  }
}

TEST_F(Phasors, ShowTheUnitBehindEachMagnitude) {
  Start();
  ClickTab(forms::tab::Phasor);
  for (std::size_t row = 1; row <= 8; ++row) Form().Grid1.Cell[row][1] = "1.0000";
  auto& table = Find<QTableWidget>("Grid1");
  // Where something is painted in the magnitude of a row.
  const auto ink = [&](int row) {
    const QImage cell = table.viewport()
                            ->grab(table.visualItemRect(table.item(row, 1)).adjusted(3, 3, -3, -3))
                            .toImage();
    QRect painted;
    for (int y = 0; y < cell.height(); ++y) {
      for (int x = 0; x < cell.width(); ++x) {
        if (cell.pixelColor(x, y).lightness() < 180) painted |= QRect(x, y, 1, 1);
      }
    }
    return painted;
  };
  const QRect amperes = ink(1);
  const QRect kilovolts = ink(5);
  EXPECT_EQ(amperes.left(), kilovolts.left()) << "the numbers end together";
  EXPECT_GT(kilovolts.right(), amperes.right());
  EXPECT_EQ(Cell(1, 1), "1.0000");

  Form().Combo4[0].ListIndex = 1;
  EXPECT_EQ(ink(1), amperes) << "the number was measured before";
  Form().Grid1.Cell[1][1] = "1000.0000";
  EXPECT_GT(ink(1).right(), amperes.right());
}

TEST_F(Phasors, WithoutDataTheRunButtonsStayLockedForASecondAfterTheDialog) {
  Start();
  GoMeasure("NOBODY");
  Type(Member("Text1", 14), "");
  ClickTab(forms::tab::Phasor);
  std::optional<std::chrono::nanoseconds> closed;
  OnDialog([&](QDialog& dialog) {
    closed = clock_.Now();
    QTest::mouseClick(dialog.findChild<QAbstractButton*>("Close"), Qt::LeftButton);
  });
  Click("CWButton2");
  EXPECT_TRUE(Form().CWButton2.Value);
  ASSERT_TRUE(WaitFor([&] { return closed && QApplication::activeModalWidget() == nullptr; }));

  const std::array<platform::CWButton*, 3> buttons = {&Form().CWButton1, &Form().CWButton2,
                                                      &Form().CWButton4};
  for (const platform::CWButton* button : buttons) {
    EXPECT_FALSE(button->Enabled);
    EXPECT_FALSE(button->Value);
  }
  EXPECT_FALSE(Find<QWidget>("CWButton2").isEnabled());
  EXPECT_EQ(Find<QAbstractButton>("CWButton2").text(), "RUN");
  EXPECT_FALSE(Program().Acquisition.State.CaptureRunning);

  ASSERT_TRUE(WaitFor([&] { return Find<QWidget>("CWButton2").isEnabled(); }));
  EXPECT_GE(clock_.Now() - *closed, std::chrono::milliseconds(1000));
  for (const platform::CWButton* button : buttons) {
    EXPECT_TRUE(button->Enabled);
    EXPECT_FALSE(button->Value);
  }
}

}  // namespace
}  // namespace desktop
