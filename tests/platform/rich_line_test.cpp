#include "platform/rich_line.h"

#include <gtest/gtest.h>

#include "base/failure.h"

namespace {

using platform::RichBold;
using platform::RichFont;
using platform::RichSize;
using platform::RichText;
using platform::RichUnderline;

TEST(RichLine, HoldsFontSizeStyleAndText) {
  const char* line = "Verdana|10|normalunderline|Short description:";

  EXPECT_EQ(RichFont(line), "Verdana");
  EXPECT_FLOAT_EQ(RichSize(line), 10.0F);
  EXPECT_FALSE(RichBold(line));
  EXPECT_TRUE(RichUnderline(line));
  EXPECT_EQ(RichText(line), "Short description:");
}

TEST(RichLine, KeepsABlankAsItsText) {
  const char* line = "Courier New|10|normal| ";

  EXPECT_EQ(RichFont(line), "Courier New");
  EXPECT_FLOAT_EQ(RichSize(line), 10.0F);
  EXPECT_FALSE(RichBold(line));
  EXPECT_FALSE(RichUnderline(line));
  EXPECT_EQ(RichText(line), " ");
}

TEST(RichLine, KnowsFourStyles) {
  EXPECT_FALSE(RichBold("Verdana|10|normal|x"));
  EXPECT_FALSE(RichUnderline("Verdana|10|normal|x"));
  EXPECT_TRUE(RichBold("Verdana|10|fett|x"));
  EXPECT_FALSE(RichUnderline("Verdana|10|fett|x"));
  EXPECT_TRUE(RichBold("Verdana|10|fettunderline|x"));
  EXPECT_TRUE(RichUnderline("Verdana|10|fettunderline|x"));
}

TEST(RichLine, ReadsAnyOtherStyleAsPlain) {
  for (const char* line : {"Verdana|10|bold|x", "Verdana|10|Fett|x", "Verdana|10||x"}) {
    EXPECT_FALSE(RichBold(line)) << line;
    EXPECT_FALSE(RichUnderline(line)) << line;
  }
}

TEST(RichLine, KeepsFurtherBarsInItsText) {
  EXPECT_EQ(RichText("Verdana|10|normal|a|b||c"), "a|b||c");
}

TEST(RichLine, ReadsFractionsOfAPoint) {
  EXPECT_FLOAT_EQ(RichSize("Verdana|8.25|normal|x"), 8.25F);
}

TEST(RichLine, WithFewerThanThreeBarsIsAnError) {
  EXPECT_THROW(RichText("Verdana|10|normal"), platform::Failure);
  EXPECT_THROW(RichFont("Verdana"), platform::Failure);
  EXPECT_THROW(RichSize("|"), platform::Failure);
}

}  // namespace
