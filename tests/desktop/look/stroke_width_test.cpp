#include <gtest/gtest.h>

#include <QImage>
#include <QTest>
#include <array>
#include <cmath>

#include "desktop/look/casing.h"
#include "desktop/look/look.h"
#include "desktop/widgets/picture_pad.h"
#include "desktop/widgets/swatch.h"
#include "look/lone_curve.h"

namespace desktop {
namespace {

using platform::Rgb;

/// The colours of the channels; two of them need an edge.
constexpr std::array<Rgb, 8> Channels = {Rgb{0, 0, 0},     Rgb{255, 0, 0},    Rgb{0, 0, 255},
                                         Rgb{96, 96, 96},  Rgb{0, 255, 0},    Rgb{255, 0, 255},
                                         Rgb{0, 255, 255}, Rgb{128, 128, 128}};

/// A curve that is level with the middle of a row of pixels.
class Strokes : public LoneCurve {
 protected:
  Strokes() {
    view_.replot();
    // A line at a whole number covers the row of pixels of that number.
    row_ = static_cast<int>(view_.yAxis->coordToPixel(0.4));
    plot_.Y = std::vector<double>(3, view_.yAxis->pixelToCoord(row_));
  }
  /// The pixels of a column from above the curve to below it.
  std::vector<QColor> Column(const Rgb& colour, double x) {
    plot_.LineColor = colour;
    plot_.PointColor = colour;
    view_.replot();
    const QImage picture = view_.toPixmap().toImage();
    const int column = static_cast<int>(view_.xAxis->coordToPixel(x));
    std::vector<QColor> pixels;
    for (int y = row_ - Reach; y <= row_ + Reach; ++y)
      pixels.push_back(picture.pixelColor(column, y));
    return pixels;
  }
  /// How many of them are not just ground.
  int Painted(const Rgb& colour, double x) {
    const std::vector<QColor> pixels = Column(colour, x);
    return static_cast<int>(std::count_if(pixels.begin(), pixels.end(), [&](const QColor& pixel) {
      return std::abs(pixel.red() - pixels.front().red()) > 8 ||
             std::abs(pixel.green() - pixels.front().green()) > 8;
    }));
  }

  static constexpr int Reach = 12;
  int row_ = 0;
};

TEST_F(Strokes, OfACurveWithAnEdgeAreNoWiderThanTheOthers) {
  for (const bool screen : {true, false}) {
    graph_.ScreenLook = screen;
    for (const std::int16_t width : {std::int16_t{2}, std::int16_t{3}, std::int16_t{4}}) {
      plot_.LineWidth = width;
      const int usual = Painted(Channels[0], 0.5);
      EXPECT_GE(usual, width);
      EXPECT_LE(usual, width + 1);
      for (const Rgb& colour : Channels) EXPECT_EQ(Painted(colour, 0.5), usual) << colour;
    }
  }
}

TEST_F(Strokes, OfMarkersAreOneSizeToo) {
  plot_.LineStyle = 0;
  plot_.PointStyle = 15;
  const int usual = Painted(Channels[0], 1);
  EXPECT_GT(usual, 4);
  for (const Rgb& colour : Channels) EXPECT_EQ(Painted(colour, 1), usual) << colour;
}

TEST_F(Strokes, OfEveryChannelStandOutInTheSmallestWindow) {
  for (const bool screen : {true, false}) {
    graph_.ScreenLook = screen;
    for (const Rgb& colour : Channels) {
      const std::vector<QColor> pixels = Column(colour, 0.5);
      const QColor& ground = pixels.front();
      const QColor& core = pixels[Reach];
      const QColor& edge = pixels[Reach + 1];
      EXPECT_EQ(core, look::ColourOf(colour)) << colour;
      if (look::Contrast(core, ground) >= look::LeastContrast) continue;
      EXPECT_GE(look::Contrast(core, edge), look::LeastContrast) << colour;
      EXPECT_GE(look::Contrast(edge, ground), look::LeastContrast) << colour;
    }
  }
}

TEST(Swatches, AreOneSize) {
  for (const Rgb& colour : Channels) {
    QImage row(60, 20, QImage::Format_RGB32);
    row.fill(look::Card);
    QPainter painter(&row);
    PaintSwatch(painter, row.rect(), look::ColourOf(colour), look::Card);
    painter.end();
    QRect painted;
    for (int y = 0; y < row.height(); ++y) {
      for (int x = 0; x < row.width(); ++x) {
        if (row.pixelColor(x, y) != look::Card) painted |= QRect(x, y, 1, 1);
      }
    }
    EXPECT_EQ(painted, QRect(0, 8, 22, 4)) << colour;
  }
}

TEST(Swatches, HaveAnEdgeWhereTheirColourAloneDoesNotStandOut) {
  for (const Rgb& rgb : Channels) {
    QImage row(60, 20, QImage::Format_RGB32);
    row.fill(look::Card);
    QPainter painter(&row);
    const QColor colour = look::ColourOf(rgb);
    PaintSwatch(painter, row.rect(), colour, look::Card);
    painter.end();
    EXPECT_EQ(row.pixelColor(11, 9), colour) << rgb;
    const QColor edge = look::CasingOf(colour, look::Card).value_or(colour);
    for (const QPoint& corner : {QPoint(0, 8), QPoint(21, 8), QPoint(0, 11), QPoint(21, 11)}) {
      EXPECT_EQ(row.pixelColor(corner), edge) << rgb;
    }
  }
}

/// A vector of the phasor diagram, as wide as its picture is large.
TEST(Vectors, GrowWithThePicture) {
  platform::DrawnPicture drawn;
  PicturePad pad(drawn, nullptr);
  pad.SetGround(Qt::white);
  drawn.Scale({-1005, -1005}, {1005, 1005});
  drawn.DrawWidth(5);
  drawn.Line({-800, 0}, {800, 0}, Rgb{255, 0, 0});
  for (const int side : {430, 860, 1210}) {
    pad.Place({0, 0}, side);
    QImage picture(pad.size(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    pad.render(&picture, {}, {}, QWidget::DrawChildren);
    int red = 0;
    for (int y = 0; y < side; ++y) red += picture.pixelColor(side / 3, y) == QColor(255, 0, 0);
    EXPECT_NEAR(red, 5.0 * side / 430, 1.1) << side;
  }
}

}  // namespace
}  // namespace desktop
