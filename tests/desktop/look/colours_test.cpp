#include <QImage>
#include <QTableWidget>
#include <cstdlib>

#include "desktop/widgets/picture_pad.h"
#include "window_scene.h"

namespace desktop {
namespace {

const QColor FrameGround(248, 251, 254);

/// What a view looks like on the screen.
class Colours : public WindowScene {
 protected:
  static void ExpectNear(const QColor& shown, const QColor& wanted, int tolerance,
                         const char* what) {
    EXPECT_NEAR(shown.red(), wanted.red(), tolerance) << what;
    EXPECT_NEAR(shown.green(), wanted.green(), tolerance) << what;
    EXPECT_NEAR(shown.blue(), wanted.blue(), tolerance) << what;
  }
  /// The face of a run button, away from its edge, its sign and its word.
  QColor FaceOf(const char* name) {
    auto& button = Find<QWidget>(name);
    return button.grab().toImage().pixelColor(button.width() / 16, button.height() / 2);
  }
  /// A pixel of a widget, counted from its upper left corner, or from its lower right one where it
  /// is negative.
  static QColor Pixel(QWidget& widget, int x, int y) {
    const QImage picture = widget.grab().toImage();
    return picture.pixelColor(x < 0 ? picture.width() + x : x, y < 0 ? picture.height() + y : y);
  }
  QImage CellPicture(int row, int column) {
    auto& table = Find<QTableWidget>("Grid1");
    return table.viewport()->grab(table.visualItemRect(table.item(row, column))).toImage();
  }
  /// True where some pixel of a picture has this colour, give or take what smooth edges cost.
  static bool Shows(const QImage& picture, const QColor& colour) {
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        const QColor there = picture.pixelColor(x, y);
        if (std::abs(there.red() - colour.red()) < 40 &&
            std::abs(there.green() - colour.green()) < 40 &&
            std::abs(there.blue() - colour.blue()) < 40) {
          return true;
        }
      }
    }
    return false;
  }
};

TEST_F(Colours, EveryRunButtonHasItsFace) {
  Start();
  struct Face {
    int Tab = 0;
    const char* Name = nullptr;
    QColor Colour;
  };
  for (const Face& face : {Face{forms::tab::Values, "CWButton4", {204, 229, 254}},
                           Face{forms::tab::Phasor, "CWButton2", FrameGround},
                           Face{forms::tab::Recorder, "CWButton3", {237, 246, 240}},
                           Face{forms::tab::Report, "Command2", {237, 246, 254}}}) {
    ClickTab(face.Tab);
    ASSERT_TRUE(Find<QWidget>(face.Name).isEnabled()) << face.Name;
    ExpectNear(FaceOf(face.Name), face.Colour, 5, face.Name);
  }
}

TEST_F(Colours, ARunButtonFollowsTheColourOfItsControl) {
  Start();
  ClickTab(forms::tab::Values);
  Form().CWButton4.BackColor = platform::Rgb{120, 200, 90};
  ExpectNear(FaceOf("CWButton4"), QColor(120, 200, 90), 8, "CWButton4");
}

TEST_F(Colours, TheRowOfTabsRunsFromWhiteToBlue) {
  Start();
  MainWindow& window = program_->Window();
  const QImage shown = window.grab().toImage();
  // Above the tabs the strip is free.
  ExpectNear(shown.pixelColor(0, 2), QColor(255, 255, 255), 2, "left end");
  ExpectNear(shown.pixelColor(shown.width() / 2, 2), QColor(154, 204, 255), 3, "middle");
  ExpectNear(shown.pixelColor(shown.width() - 1, 2), QColor(52, 153, 254), 2, "right end");
}

TEST_F(Colours, TheFramesOfThePhasorViewAndWhatStandsInThemShareOneGround) {
  Start();
  ClickTab(forms::tab::Phasor);
  auto& frame = Find<QWidget>("Frame2");
  EXPECT_EQ(Pixel(frame, -12, -12), FrameGround);
  EXPECT_EQ(Pixel(Find<QWidget>("Frame3"), -6, -6), FrameGround);
  // The corner of the picture is far from its circle.
  auto& picture = Find<PicturePad>("phasordiagram");
  EXPECT_EQ(Pixel(frame, picture.x() + picture.Side() - 6, picture.y() + 6), FrameGround);
  Click("Check6");
  for (const char* list : {"Combo5(0)", "Combo5(1)"}) {
    EXPECT_EQ(Pixel(Find<QWidget>(list), -8, 5), FrameGround) << list;
  }
}

TEST_F(Colours, TheFramesFollowTheColoursOfTheirControls) {
  Start();
  ClickTab(forms::tab::Phasor);
  Form().Frame3.BackColor = platform::Rgb{200, 240, 250};
  EXPECT_EQ(Pixel(Find<QWidget>("Frame3"), -6, -6), QColor(200, 240, 250));
  Form().Frame2.BackColor = platform::Rgb{250, 240, 200};
  EXPECT_EQ(Pixel(Find<QWidget>("Frame2"), -12, -12), QColor(250, 240, 200));
}

TEST_F(Colours, TheTableHasABlueHeadAndBlackNumbersOnTheGroundOfItsFrame) {
  Start();
  ClickTab(forms::tab::Phasor);
  Form().Grid1.Cell[3][1] = "400.0000";
  const QColor blue(0, 0, 255);
  const QColor black(0, 0, 0);
  auto& table = Find<QTableWidget>("Grid1");
  for (int row = 0; row < table.rowCount(); ++row) {
    for (int column = 0; column < table.columnCount(); ++column) {
      EXPECT_EQ(CellPicture(row, column).pixelColor(3, 3), FrameGround) << row << ", " << column;
    }
  }
  for (const auto& [row, column] :
       {std::pair(0, 1), std::pair(0, 2), std::pair(1, 0), std::pair(8, 0)}) {
    EXPECT_TRUE(Shows(CellPicture(row, column), blue)) << row << ", " << column;
    EXPECT_FALSE(Shows(CellPicture(row, column), black)) << row << ", " << column;
  }
  EXPECT_TRUE(Shows(CellPicture(3, 1), black));
  EXPECT_FALSE(Shows(CellPicture(3, 1), blue));
}

}  // namespace
}  // namespace desktop
