#include "desktop/widgets/picture_pad.h"

#include <gtest/gtest.h>

#include <QImage>
#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

namespace desktop {
namespace {

namespace draw_style = platform::draw_style;
using platform::Point;

constexpr platform::Rgb Red{255, 0, 0};
constexpr platform::Rgb Black{0, 0, 0};

/// A picture in the user coordinates of the phasor diagram, 402 pixels wide: five units a pixel.
class Picture : public ::testing::Test {
 protected:
  static constexpr int Side = 402;
  static constexpr float Edge = 1005;

  Picture() { Lay(Side); }

  void Lay(int side) {
    pad.Place(QPoint(0, 0), side);
    drawn.Clear();
    drawn.Scale({-Edge, -Edge}, {Edge, Edge});
    drawn.DrawStyle(draw_style::Solid);
    drawn.DrawWidth(1);
  }
  static QPointF Pixel(Point point) {
    return {static_cast<double>(point.X + Edge) * Side / (2 * static_cast<double>(Edge)),
            static_cast<double>(point.Y + Edge) * Side / (2 * static_cast<double>(Edge))};
  }
  /// A text that is printed now stands with its corner there.
  void ExpectPosition(Point position) {
    drawn.Print("I1");
    const QPointF corner = pad.TextAreas().back().topLeft();
    EXPECT_NEAR(corner.x(), Pixel(position).x(), 0.01);
    EXPECT_NEAR(corner.y(), Pixel(position).y(), 0.01);
  }
  QImage Shown() { return pad.grab().toImage(); }
  static bool IsRed(const QColor& colour) {
    return colour.red() > 200 && colour.green() < 100 && colour.blue() < 100;
  }
  static bool IsInk(const QColor& colour) { return colour.lightness() < 60; }
  /// How many columns have a line at the middle of their height.
  int LineInTheMiddle() {
    const QImage picture = Shown();
    int count = 0;
    for (int x = 0; x < picture.width(); ++x) {
      bool line = false;
      for (int y = Side / 2 - 2; y <= Side / 2 + 2; ++y) {
        line = line || picture.pixelColor(x, y).green() < 200;
      }
      if (line) ++count;
    }
    return count;
  }
  /// The area of the picture that is not ground.
  static QRect Inked(const QImage& picture) {
    const QColor ground = picture.pixelColor(picture.width() - 1, 0);
    QRect area;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        // A halo of the ground's colour may miss it by rounding.
        if (std::abs(picture.pixelColor(x, y).lightness() - ground.lightness()) > 4)
          area |= QRect(x, y, 1, 1);
      }
    }
    return area;
  }

  platform::DrawnPicture drawn;
  PicturePad pad{drawn, nullptr};
};

TEST_F(Picture, ALineLeavesThePositionAtItsEnd) {
  drawn.MoveTo({10, 20});
  ExpectPosition({10, 20});

  drawn.Line({0, 0}, {300, -400}, Red);
  ExpectPosition({300, -400});

  drawn.Line({0, 0}, {300, -400}, Red);
  drawn.LineTo({250, -380}, Red);
  ExpectPosition({250, -380});

  drawn.MoveTo({250, -380});
  drawn.Circle({0, 0}, 200, Black);
  ExpectPosition({250, -380});
}

TEST_F(Picture, ALineToAPointStartsAtThePosition) {
  drawn.DrawWidth(3);
  drawn.MoveTo({-500, 0});
  drawn.LineTo({500, 0}, Red);

  const QImage picture = Shown();

  EXPECT_TRUE(IsRed(picture.pixelColor(Side / 4 + 2, Side / 2)));
  EXPECT_TRUE(IsRed(picture.pixelColor(Side * 3 / 4 - 2, Side / 2)));
  EXPECT_FALSE(IsRed(picture.pixelColor(Side / 4 - 10, Side / 2)));
}

TEST_F(Picture, APrintedTextAdvancesThePositionToTheNextLine) {
  drawn.MoveTo({100, 200});

  drawn.Print("I1");

  drawn.Print("I2");
  ASSERT_EQ(pad.TextAreas().size(), 2U);
  EXPECT_EQ(pad.TextAreas().back().left(), 0);
  EXPECT_GT(pad.TextAreas().back().top(), Pixel({100, 200}).y());
}

TEST_F(Picture, APatternShowsAtWidthOneAlone) {
  constexpr int Whole = 400;
  for (const std::int16_t style : {draw_style::Dotted, draw_style::DashDotDot}) {
    for (const std::int16_t width : {std::int16_t{1}, std::int16_t{3}, std::int16_t{5}}) {
      Lay(Side);
      drawn.DrawStyle(style);
      drawn.DrawWidth(width);
      drawn.Line({-1000, 0}, {1000, 0}, Red);

      const int inked = LineInTheMiddle();

      if (width == 1) {
        EXPECT_LT(inked, Whole * 9 / 10) << style;
        EXPECT_GT(inked, Whole / 4) << style;
      } else {
        EXPECT_GE(inked, Whole) << style << " at " << width;
      }
    }
  }
}

TEST_F(Picture, ASolidLineHasNoGaps) {
  drawn.Line({-1000, 0}, {1000, 0}, Red);

  EXPECT_GE(LineInTheMiddle(), 400);
}

TEST_F(Picture, LinesAndCirclesEndAtThePicturesEdge) {
  drawn.DrawWidth(5);
  drawn.Line({0, 0}, {5000, 0}, Red);
  drawn.Line({0, 0}, {0, 5000}, Red);
  drawn.Circle({900, 900}, 500, Red);

  const QImage picture = Shown();

  ASSERT_GT(picture.width(), Side);
  ASSERT_GT(picture.height(), Side);
  EXPECT_TRUE(IsRed(picture.pixelColor(Side - 1, Side / 2)));
  EXPECT_TRUE(IsRed(picture.pixelColor(Side / 2, Side - 1)));
  EXPECT_EQ(Inked(picture).right(), Side - 1);
  EXPECT_EQ(Inked(picture).bottom(), Side - 1);
}

TEST_F(Picture, ClearingTakesEverythingAway) {
  drawn.Line({0, 0}, {500, 500}, Red);
  drawn.Print("U1");

  drawn.Clear();

  EXPECT_TRUE(Inked(Shown()).isNull());
  EXPECT_EQ(pad.Texts(), "");
}

TEST_F(Picture, TheLongestScaleLineFitsBesideThePicture) {
  const char* line = "FS voltage=10000 (1250)kV";
  for (const int side : {430, 600, 800, 1200}) {
    Lay(side);
    drawn.MoveTo({-950, 0});
    drawn.Print(line);
    const QSize whole = Inked(Shown()).size();

    Lay(side);
    drawn.MoveTo({380, 950});
    drawn.Print(line);
    const QRect shown = Inked(Shown());

    EXPECT_NEAR(shown.width(), whole.width(), 2) << side;
    EXPECT_NEAR(shown.height(), whole.height(), 1) << side;
    EXPECT_LT(shown.right(), pad.width() - 1) << side;
    EXPECT_LT(shown.bottom(), pad.height() - 1) << side;
  }
}

TEST_F(Picture, ATextStandsOnTopOfWhatIsDrawnAfterIt) {
  drawn.MoveTo({0, 0});
  drawn.Print("U3");
  const QImage alone = Shown();
  drawn.DrawWidth(5);
  for (const float y : {10.0F, 30.0F, 50.0F}) drawn.Line({-100, y}, {200, y}, Red);

  const QImage covered = Shown();

  const QRect text = Inked(alone);
  int ink = 0;
  for (int y = text.top(); y <= text.bottom(); ++y) {
    for (int x = text.left(); x <= text.right(); ++x) {
      if (!IsInk(alone.pixelColor(x, y))) continue;
      ++ink;
      EXPECT_TRUE(IsInk(covered.pixelColor(x, y))) << x << ", " << y;
    }
  }
  EXPECT_GT(ink, 20);
}

TEST_F(Picture, TheThinLinesOfTheBackgroundKeepAwayFromATextAndTheVectorsDoNot) {
  const auto touches = [this](std::int16_t width) {
    Lay(Side);
    drawn.DrawWidth(width);
    for (int line = 0; line < 14; ++line) {
      const auto y = static_cast<float>(5 * line);
      drawn.Line({-100, y}, {200, y}, Red);
    }
    drawn.MoveTo({0, 0});
    drawn.Print("U3");
    const QImage picture = Shown();
    int count = 0;
    for (int y = 0; y < Side; ++y) {
      for (int x = 0; x + 2 < Side; ++x) {
        const bool ink = IsInk(picture.pixelColor(x, y));
        if (ink && IsRed(picture.pixelColor(x + 2, y))) ++count;
      }
    }
    return count;
  };

  EXPECT_EQ(touches(1), 0);
  EXPECT_GT(touches(3), 5);
}

/// An arrow from the middle, with its head and its name, as the phasor diagram draws it.
void DrawArrow(platform::DrawnPicture& drawn, double degrees, float length, platform::Rgb colour,
               const char* name) {
  const auto at = [](double angle, double radius) {
    const double turn = angle / 180 * std::numbers::pi;
    return Point{static_cast<float>(std::cos(turn) * radius),
                 static_cast<float>(std::sin(turn) * radius)};
  };
  drawn.DrawWidth(3);
  const Point tip = at(degrees, static_cast<double>(length));
  drawn.Line({0, 0}, tip, colour);
  for (const double side : {-20.0, 20.0}) {
    const Point barb = at(degrees + side, 50);
    drawn.LineTo({tip.X - barb.X, tip.Y - barb.Y}, colour);
    drawn.MoveTo(tip);
  }
  drawn.Print(name);
}

bool Overlap(const std::vector<QRectF>& areas) {
  for (std::size_t i = 0; i < areas.size(); ++i) {
    for (std::size_t j = i + 1; j < areas.size(); ++j) {
      if (areas[i].intersects(areas[j])) return true;
    }
  }
  return false;
}

TEST_F(Picture, TheNamesOfShortArrowsDoNotPileUp) {
  for (const float length : {0.0F, 1.0F, 20.0F, 80.0F, 400.0F}) {
    Lay(Side);
    const char* names[] = {"I1", "I2", "I3", "U1", "U2", "U3"};
    const double angles[] = {-30, -150, 90, 0, -120, 120};
    for (std::size_t i = 0; i < 6; ++i) DrawArrow(drawn, angles[i], length, Red, names[i]);

    EXPECT_EQ(pad.TextAreas().size(), 6U);
    EXPECT_FALSE(Overlap(pad.TextAreas())) << length;
  }
}

TEST_F(Picture, ANameStandsAtTheTipOfItsArrow) {
  for (const double degrees : {0.0, 45.0, 90.0, 180.0, 270.0}) {
    Lay(Side);
    DrawArrow(drawn, degrees, 500, Red, "U1");

    const QRectF name = pad.TextAreas().front();
    const double turn = degrees / 180 * std::numbers::pi;
    const QPointF way(std::cos(turn), std::sin(turn));
    const QPointF middle(Side / 2.0, Side / 2.0);
    const double tip = Side / 2.0 * 500 / static_cast<double>(Edge);
    const double half =
        std::abs(way.x()) * name.width() / 2 + std::abs(way.y()) * name.height() / 2;
    const double beyond = QPointF::dotProduct(name.center() - middle, way) - half - tip;
    EXPECT_NEAR(beyond / name.height(), 0.25, 0.1) << degrees;
  }
}

TEST_F(Picture, ANameStandsClearOfTheShaftOfAnotherArrow) {
  Lay(Side);
  // The first ends right beside the second, which goes far beyond it.
  DrawArrow(drawn, 92, 400, Red, "U3");
  DrawArrow(drawn, 90, 900, Red, "I3");

  const QRectF name = pad.TextAreas().front();
  const double shaft = Side / 2.0;
  EXPECT_TRUE(name.right() < shaft - 1.5 || name.left() > shaft + 1.5)
      << name.left() << " to " << name.right();
}

TEST_F(Picture, TheScaleLinesLeaveTheOuterCircleWhole) {
  for (const int side : {430, 600, 1000}) {
    Lay(side);
    drawn.Circle({0, 0}, 1000, Black);
    for (const auto& [place, line] : {std::pair(Point{-950, 950}, "FS current=10000 (1250)A"),
                                      std::pair(Point{380, 950}, "FS voltage=10000 (1250)kV")}) {
      drawn.MoveTo(place);
      drawn.Print(line);
    }
    const double middle = side / 2.0;
    const double radius = middle * 1000 / static_cast<double>(Edge);
    for (const QRectF& text : pad.TextAreas()) {
      for (int half = 0; half < 720; ++half) {
        const double degrees = half / 2.0;
        const double turn = degrees / 180 * std::numbers::pi;
        const QPointF rim(middle + std::cos(turn) * radius, middle + std::sin(turn) * radius);
        // The upper part of a text's box is room for accents.
        EXPECT_FALSE(text.adjusted(0, text.height() * 0.2, 0, 0).contains(rim))
            << side << " at " << degrees;
      }
    }
  }
}

TEST_F(Picture, BothScaleLinesStandOnOneHeight) {
  for (const int side : {430, 605, 807, 1210}) {
    Lay(side);
    drawn.Circle({0, 0}, 1000, Black);
    for (const auto& [place, line] : {std::pair(Point{-950, 950}, "FS current=10000 (1250)A"),
                                      std::pair(Point{380, 950}, "FS voltage=150 (18.75)kV")}) {
      drawn.MoveTo(place);
      drawn.Print(line);
    }
    EXPECT_EQ(pad.TextAreas()[0].top(), pad.TextAreas()[1].top()) << side;
    EXPECT_LT(pad.TextAreas()[0].bottom(), pad.height()) << side;
  }
}

TEST_F(Picture, TheNamesOfTheAnglesLeaveTheOuterCircleClosed) {
  for (const int side : {430, 605, 807, 1210}) {
    Lay(side);
    drawn.DrawStyle(draw_style::Solid);
    drawn.Circle({0, 0}, 1000, Black);
    drawn.ForeColor({0, 0, 255});
    for (const auto& [place, angle] :
         {std::pair(Point{0, -1000}, "90°"), std::pair(Point{-1000, 0}, "180°"),
          std::pair(Point{0, 950}, "270°"), std::pair(Point{950, 0}, "0°")}) {
      drawn.MoveTo(place);
      drawn.Print(angle);
    }
    const QImage picture = Shown();

    const double middle = side / 2.0;
    const double radius = middle * 1000 / static_cast<double>(Edge);
    for (int step = 0; step < 3600; ++step) {
      const double turn = step / 1800.0 * std::numbers::pi;
      const QPointF rim(middle + std::cos(turn) * radius, middle + std::sin(turn) * radius);
      int darkest = 255;
      const QPoint pixel(static_cast<int>(rim.x()), static_cast<int>(rim.y()));
      for (int near = 0; near < 9; ++near) {
        const QColor there = picture.pixelColor(pixel + QPoint(near % 3 - 1, near / 3 - 1));
        // The letters are blue, the circle is not.
        if (there.blue() - there.red() < 60) darkest = std::min(darkest, there.lightness());
      }
      ASSERT_LT(darkest, 190) << side << " at " << step / 10.0;
    }
    // The names stand within.
    for (const QRectF& text : pad.TextAreas())
      EXPECT_LT(QLineF(text.center(), QPointF(middle, middle)).length(), radius) << side;
  }
}

}  // namespace
}  // namespace desktop
