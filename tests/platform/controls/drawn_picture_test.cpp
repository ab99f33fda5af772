#include "platform/controls/drawn_picture.h"

#include <gtest/gtest.h>

namespace {

using platform::DrawnPicture;
namespace draw_call = platform::draw_call;

TEST(DrawnPictureCalls, StandInTheirOrderUntilTheyAreCleared) {
  DrawnPicture picture;
  picture.MoveTo({1, 2});
  picture.Print("I1");
  ASSERT_EQ(picture.Calls().size(), 2U);
  EXPECT_EQ(std::get<draw_call::MoveTo>(picture.Calls()[0]).Position, (platform::Point{1, 2}));
  EXPECT_EQ(std::get<draw_call::Print>(picture.Calls()[1]).Text, "I1");

  picture.Clear();

  EXPECT_TRUE(picture.Calls().empty());
}

TEST(DrawnPictureCalls, BeginWithTheToolsThatAClearingLeaves) {
  DrawnPicture picture;
  picture.Scale({-5, -6}, {5, 6});
  picture.ForeColor({0, 0, 255});
  picture.DrawStyle(platform::draw_style::Dotted);
  picture.DrawWidth(5);
  EXPECT_EQ(picture.Before().Width, 1);

  picture.Clear();
  picture.DrawWidth(3);

  EXPECT_EQ(picture.Before().Scale.TopLeft, (platform::Point{-5, -6}));
  EXPECT_EQ(picture.Before().Scale.BottomRight, (platform::Point{5, 6}));
  EXPECT_EQ(picture.Before().ForeColor, (platform::Rgb{0, 0, 255}));
  EXPECT_EQ(picture.Before().Style, platform::draw_style::Dotted);
  EXPECT_EQ(picture.Before().Width, 5);
}

TEST(DrawnPictureCalls, TellOfEachChange) {
  DrawnPicture picture;
  int changes = 0;
  picture.Changed = [&] { ++changes; };
  picture.Line({0, 0}, {1, 1}, std::nullopt);
  picture.Clear();
  EXPECT_EQ(changes, 2);
}

}  // namespace
