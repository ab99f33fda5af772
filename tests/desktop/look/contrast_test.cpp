#include <gtest/gtest.h>

#include <QImage>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <vector>

#include "desktop/look/casing.h"
#include "desktop/look/look.h"
#include "desktop/widgets/picture_pad.h"
#include "look/lone_curve.h"

namespace desktop {
namespace {

using platform::Rgb;

/// The colours of the curves and of the markers, and the classical sixteen.
const std::vector<Rgb>& GivenColours() {
  static const std::vector<Rgb> colours = {
      {0, 0, 0},     {255, 0, 0},     {0, 0, 255},     {96, 96, 96},  {0, 255, 0},    {255, 0, 255},
      {0, 255, 255}, {128, 128, 128}, {192, 192, 192}, {0, 0, 128},   {0, 128, 0},    {0, 128, 128},
      {128, 0, 0},   {128, 0, 128},   {128, 128, 0},   {255, 255, 0}, {255, 255, 255}};
  return colours;
}

/// How well a colour stands out on a line of painted pixels that runs from its middle to what it
/// lies on: straight from the ground, or by an edge that stands out from both.
double StandsOut(const std::vector<QColor>& way) {
  const QColor& colour = way.front();
  const QColor& ground = way.back();
  double best = look::Contrast(colour, ground);
  for (const QColor& edge : way) {
    best = std::max(best, std::min(look::Contrast(colour, edge), look::Contrast(edge, ground)));
  }
  return best;
}

class Curve : public LoneCurve, public testing::WithParamInterface<Rgb> {
 protected:
  Curve() {
    plot_.LineColor = GetParam();
    plot_.PointColor = GetParam();
    // As wide as in a large window; in the smallest the edge has half a pixel.
    plot_.LineWidth = std::int16_t{4};
    view_.replot();
  }
  /// Where a line of four pixels covers whole rows.
  double Level() const {
    return view_.yAxis->pixelToCoord(std::round(view_.yAxis->coordToPixel(0.4)) - 0.5);
  }
  /// Painted pixels from the middle of the picture's only curve downward.
  std::vector<QColor> Way(double atX) {
    plot_.Y = std::vector<double>(3, Level());
    view_.replot();
    const QImage picture = view_.toPixmap().toImage();
    const int x = static_cast<int>(view_.xAxis->coordToPixel(atX));
    const int middle = static_cast<int>(std::round(view_.yAxis->coordToPixel(0.4)));
    std::vector<QColor> way;
    for (int i = 0; i < 9; ++i) way.push_back(picture.pixelColor(x, middle + i));
    return way;
  }
};

TEST_P(Curve, StandsOutFromThePaperOfTheScreenAndOfThePrint) {
  for (const bool screen : {true, false}) {
    graph_.ScreenLook = screen;
    const std::vector<QColor> way = Way(0.5);
    EXPECT_EQ(way.front(), look::ColourOf(GetParam()));
    EXPECT_GE(StandsOut(way), look::LeastContrast) << screen;
  }
}

TEST_P(Curve, ItsMarkersStandOutToo) {
  plot_.LineStyle = 0;
  plot_.PointStyle = 15;
  for (const bool screen : {true, false}) {
    graph_.ScreenLook = screen;
    const std::vector<QColor> way = Way(1);
    EXPECT_EQ(way.front(), look::ColourOf(GetParam()));
    EXPECT_GE(StandsOut(way), look::LeastContrast) << screen;
  }
}

TEST_P(Curve, AVectorOfThePhasorDiagramStandsOutToo) {
  platform::DrawnPicture drawn;
  PicturePad pad(drawn, nullptr);
  const QColor ground(248, 251, 254);
  pad.SetGround(ground);
  pad.Place({0, 0}, 400);
  drawn.Scale({-1005, -1005}, {1005, 1005});
  drawn.DrawWidth(3);
  drawn.Line({-800, 0}, {800, 0}, GetParam());
  QImage picture(pad.size(), QImage::Format_RGB32);
  picture.fill(ground);
  pad.render(&picture, {}, {}, QWidget::DrawChildren);
  std::vector<QColor> way;
  for (int i = 0; i < 12; ++i) way.push_back(picture.pixelColor(100, 200 + i));
  EXPECT_EQ(way.front(), look::ColourOf(GetParam()));
  EXPECT_GE(StandsOut(way), look::LeastContrast);
}

INSTANTIATE_TEST_SUITE_P(OfEveryColour, Curve, testing::ValuesIn(GivenColours()),
                         [](const auto& colour) {
                           const Rgb& rgb = colour.param;
                           return "R" + std::to_string(rgb.Red) + "G" + std::to_string(rgb.Green) +
                                  "B" + std::to_string(rgb.Blue);
                         });

TEST(Contrast, IsThatOfTheGuidelines) {
  EXPECT_NEAR(look::Contrast(Qt::black, Qt::white), 21, 1e-9);
  EXPECT_NEAR(look::Contrast(Qt::white, Qt::black), 21, 1e-9);
  EXPECT_NEAR(look::Contrast(QColor(119, 119, 119), Qt::white), 4.48, 0.01);
}

TEST(Contrast, OfEveryTextIsEnoughToRead) {
  using look::Contrast;
  for (const QColor& ground : {look::Page, look::Card, look::Panel, look::Field}) {
    for (const QColor& text : {look::Ink, look::QuietText, look::DisabledText, look::Accent,
                               look::Digits, QColor(0, 0, 255)}) {
      EXPECT_GE(Contrast(text, ground), 4.5) << text.name().toStdString();
    }
  }
  EXPECT_GE(Contrast(look::AdviceText, look::AdviceGround), 4.5);
}

}  // namespace
}  // namespace desktop
