#include "base/hex_text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using platform::HexByteText;
using platform::HexPairValue;

TEST(HexByteText, HasTwoDigitsInUpperCase) {
  EXPECT_EQ(HexByteText(0), "00");
  EXPECT_EQ(HexByteText(9), "09");
  EXPECT_EQ(HexByteText(10), "0A");
  EXPECT_EQ(HexByteText(16), "10");
  EXPECT_EQ(HexByteText(0xBA), "BA");
  EXPECT_EQ(HexByteText(255), "FF");
}

TEST(HexByteText, WritesEveryByteAsTheRuntimeDoes) {
  for (int value = 0; value < 256; ++value) {
    char expected[3] = {};
    std::snprintf(expected, sizeof expected, "%02X", value);
    EXPECT_EQ(HexByteText(static_cast<std::uint8_t>(value)), expected);
  }
}

TEST(HexPairValue, ReadsEveryByteBack) {
  for (int value = 0; value < 256; ++value) {
    EXPECT_EQ(HexPairValue(HexByteText(static_cast<std::uint8_t>(value))), value);
  }
}

TEST(HexPairValue, CountsNothingForALowerCaseLetter) {
  EXPECT_EQ(HexPairValue("fF"), 15);
  EXPECT_EQ(HexPairValue("Ff"), 240);
  EXPECT_EQ(HexPairValue("ab"), 0);
}

TEST(HexPairValue, CountsNothingForACharacterThatIsNoDigit) {
  EXPECT_EQ(HexPairValue("G1"), 1);
  EXPECT_EQ(HexPairValue("1G"), 16);
  EXPECT_EQ(HexPairValue(" 7"), 7);
  EXPECT_EQ(HexPairValue("-1"), 1);
  EXPECT_EQ(HexPairValue(":/"), 0);
  EXPECT_EQ(HexPairValue("@\xE4"), 0);
}

TEST(HexPairValue, CountsNothingForACharacterThatIsMissing) {
  EXPECT_EQ(HexPairValue(""), 0);
  EXPECT_EQ(HexPairValue("A"), 160);
}

TEST(HexPairValue, ReadsNoMoreThanTwoCharacters) {
  EXPECT_EQ(HexPairValue("12F"), 0x12);
}

TEST(HexText, OfManyBytesTakesThePlaceOfAnother) {
  std::string text = "another text that is longer";
  platform::WriteHexText(std::vector<std::uint8_t>{0x00, 0x0F, 0xA5, 0xFF}, text);
  EXPECT_EQ(text, "000FA5FF");
  platform::WriteHexText({}, text);
  EXPECT_EQ(text, "");
}

}  // namespace
