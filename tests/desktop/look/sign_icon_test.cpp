// The signs beside a message.

#include "desktop/look/sign_icon.h"

#include <gtest/gtest.h>

#include <QImage>

#include "desktop/look/look.h"

namespace desktop {
namespace {

TEST(Signs, AreADiscWithALetterAndNoRim) {
  const QImage sign = SignIcon(look::StopRed, QLatin1Char('!')).pixmap(192, 192).toImage();
  ASSERT_EQ(sign.size(), QSize(192, 192));
  EXPECT_EQ(sign.pixelColor(2, 96).alpha(), 0);
  EXPECT_EQ(sign.pixelColor(30, 96), look::StopRed);
  int letter = 0;
  for (int y = 0; y < sign.height(); ++y) {
    for (int x = 0; x < sign.width(); ++x) {
      const QColor colour = sign.pixelColor(x, y);
      letter += colour == look::Card ? 1 : 0;
      // Where the disc ends it shines through, and nothing darker is drawn around it.
      if (colour.alpha() > 64) ASSERT_GE(colour.red(), look::StopRed.red() - 8) << x << ' ' << y;
    }
  }
  EXPECT_GT(letter, 400);
}

}  // namespace
}  // namespace desktop
