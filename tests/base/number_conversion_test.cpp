#include <gtest/gtest.h>

#include <limits>

#include "base/number_text.h"
#include "support/failures.h"

namespace {

using platform::Narrow;
using platform::NumberText;
using platform::Round;
using platform::failure::Overflow;
using platform::failure::TypeMismatch;
using support::FailureOf;

const NumberText English;
const NumberText German({',', '.'});

TEST(NumberConversion, ReadsADecimalNumber) {
  EXPECT_EQ(English.ToDouble("18.75"), 18.75);
  EXPECT_EQ(English.ToDouble("-0.5"), -0.5);
  EXPECT_EQ(English.ToDouble("+7"), 7);
  EXPECT_EQ(English.ToDouble(" 12\t"), 12);
  EXPECT_EQ(English.ToDouble("1E+15"), 1e15);
  EXPECT_EQ(English.ToDouble("1e-5"), 1e-5);
}

TEST(NumberConversion, DropsTheGroupSeparatorOfTheLocale) {
  EXPECT_EQ(English.ToDouble("1,234,567.5"), 1234567.5);
  EXPECT_EQ(German.ToDouble("1.234.567,5"), 1234567.5);
}

TEST(NumberConversion, ATextOfAnotherLocaleChangesItsValue) {
  EXPECT_EQ(German.ToSingle("18,75"), 18.75F);
  EXPECT_EQ(German.ToSingle("18.75"), 1875.0F);
  EXPECT_EQ(English.ToSingle("18,75"), 1875.0F);
}

TEST(NumberConversion, ATextWithAForeignDecimalSeparatorFails) {
  const NumberText french({',', ' '});

  EXPECT_EQ(FailureOf([&] { french.ToDouble("18.75"); }), TypeMismatch);
}

class NoNumber : public testing::TestWithParam<const char*> {};

TEST_P(NoNumber, FailsAsATypeMismatch) {
  EXPECT_EQ(FailureOf([] { English.ToDouble(GetParam()); }), TypeMismatch);
  EXPECT_EQ(FailureOf([] { English.ToSingle(GetParam()); }), TypeMismatch);
  EXPECT_EQ(FailureOf([] { English.ToInt16(GetParam()); }), TypeMismatch);
  EXPECT_EQ(FailureOf([] { English.ToInt32(GetParam()); }), TypeMismatch);
}

INSTANTIATE_TEST_SUITE_P(Texts, NoNumber,
                         testing::Values("", " ", "abc", "12ab", "1.2.3", "--5", "+-5", "++5", "1e",
                                         "inf", "nan", "0x10", "5 6", ".", "-"));

TEST(NumberConversion, ANumberThatDoesNotFitItsTypeOverflows) {
  EXPECT_EQ(FailureOf([] { English.ToInt16("40000"); }), Overflow);
  EXPECT_EQ(FailureOf([] { English.ToInt16("-32769"); }), Overflow);
  EXPECT_EQ(FailureOf([] { English.ToInt32("2147483648"); }), Overflow);
  EXPECT_EQ(FailureOf([] { English.ToSingle("3.5E38"); }), Overflow);
  EXPECT_EQ(FailureOf([] { English.ToDouble("1e400"); }), Overflow);
  EXPECT_EQ(FailureOf([] { English.ToDouble("-1E+400"); }), Overflow);
  EXPECT_EQ(FailureOf([] { English.ToSingle("1e400"); }), Overflow);
  EXPECT_EQ(FailureOf([] { English.ToDouble("1" + std::string(500, '0') + "e-10"); }), Overflow);
  EXPECT_EQ(FailureOf([] { English.ToDouble("1e99999999999"); }), Overflow);
}

TEST(NumberConversion, TheLargestFloatIsReadBackFromItsShortestText) {
  for (const float largest :
       {std::numeric_limits<float>::max(), std::numeric_limits<float>::lowest()}) {
    EXPECT_EQ(English.ToSingle(English.General(largest)), largest);
  }
  EXPECT_EQ(FailureOf([] { English.ToSingle("3.4028236E+38"); }), Overflow);
}

TEST(NumberConversion, ANumberTooSmallForItsTypeIsZero) {
  EXPECT_EQ(English.ToDouble("1e-400"), 0);
  EXPECT_EQ(English.ToDouble("-1E-400"), 0);
  EXPECT_EQ(German.ToDouble("2,5e-999"), 0);
  EXPECT_EQ(English.ToSingle("1e-60"), 0);
  EXPECT_EQ(English.ToSingle("1e-400"), 0);
  EXPECT_EQ(English.ToInt16("1e-400"), 0);
  EXPECT_EQ(English.ToDouble("0." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(English.ToDouble("123e-99999999999"), 0);
}

TEST(NumberConversion, WhatFollowsANumberOutOfRangeIsNoNumber) {
  EXPECT_EQ(FailureOf([] { English.ToDouble("1e-400e5"); }), TypeMismatch);
  EXPECT_EQ(FailureOf([] { English.ToDouble("1e-400+"); }), TypeMismatch);
  EXPECT_EQ(FailureOf([] { English.ToDouble("1e400e5"); }), TypeMismatch);
}

TEST(NumberConversion, TheLimitsOfATypeStillFit) {
  EXPECT_EQ(English.ToInt16("32767"), 32767);
  EXPECT_EQ(English.ToInt16("-32768"), -32768);
  EXPECT_EQ(English.ToInt32("2147483647"), 2147483647);
  EXPECT_EQ(English.ToInt32("-2147483648"), -2147483647 - 1);
}

TEST(NumberConversion, RoundsFractionsToTheEvenNeighbour) {
  EXPECT_EQ(English.ToInt16("0.5"), 0);
  EXPECT_EQ(English.ToInt16("1.5"), 2);
  EXPECT_EQ(English.ToInt16("2.5"), 2);
  EXPECT_EQ(English.ToInt16("-1.5"), -2);
  EXPECT_EQ(English.ToInt16("-2.5"), -2);
  EXPECT_EQ(English.ToInt32("2.51"), 3);
}

TEST(NumberConversion, TheRoundedNumberIsWhatHasToFit) {
  EXPECT_EQ(Round<std::int16_t>(32767.4), 32767);
  EXPECT_EQ(FailureOf([] { Round<std::int16_t>(32767.5); }), Overflow);
  EXPECT_EQ(Round<std::int16_t>(-32768.5), -32768);
  EXPECT_EQ(FailureOf([] { Round<std::int16_t>(-32768.6); }), Overflow);
  EXPECT_EQ(Round<std::int32_t>(2147483647.4), 2147483647);
  EXPECT_EQ(FailureOf([] { Round<std::int32_t>(2147483647.5); }), Overflow);
  EXPECT_EQ(FailureOf([] { Round<std::int32_t>(std::nan("")); }), Overflow);
}

TEST(NumberConversion, NarrowKeepsTheValueOrOverflows) {
  EXPECT_EQ(Narrow<std::int16_t>(32767), 32767);
  EXPECT_EQ(Narrow<std::int16_t>(-32768), -32768);
  EXPECT_EQ(FailureOf([] { Narrow<std::int16_t>(32768); }), Overflow);
  EXPECT_EQ(FailureOf([] { Narrow<std::int16_t>(-32769); }), Overflow);
  EXPECT_EQ(FailureOf([] { Narrow<std::int16_t>(65536 + 5); }), Overflow);
  EXPECT_EQ(FailureOf([] { Narrow<std::int32_t>(std::uint32_t{0xFFFFFFFF}); }), Overflow);
  EXPECT_EQ(FailureOf([] { Narrow<std::uint8_t>(-1); }), Overflow);
}

TEST(NumberConversion, LeadingTakesTheNumberThatTheTextBeginsWith) {
  EXPECT_EQ(NumberText::Leading("12ab"), 12);
  EXPECT_EQ(NumberText::Leading("500"), 500);
  EXPECT_EQ(NumberText::Leading("  2.5 ms"), 2.5);
  EXPECT_EQ(NumberText::Leading("-3x"), -3);
  EXPECT_EQ(NumberText::Leading("+4"), 4);
  EXPECT_EQ(NumberText::Leading("1 000"), 1000);
  EXPECT_EQ(NumberText::Leading("2,5"), 2);
}

TEST(NumberConversion, LeadingIsZeroWithoutANumber) {
  for (const char* text : {"", "abc", "-", "+", "+-5", "ms 5", "inf", "nan"}) {
    EXPECT_EQ(NumberText::Leading(text), 0) << text;
  }
}

TEST(NumberConversion, LeadingOverflowsWhereTheNumberIsTooLarge) {
  EXPECT_EQ(FailureOf([] { NumberText::Leading("1e400"); }), Overflow);
  EXPECT_EQ(FailureOf([] { NumberText::Leading("1e999 ms"); }), Overflow);
}

TEST(NumberConversion, LeadingIsZeroWhereTheNumberIsTooSmall) {
  EXPECT_EQ(NumberText::Leading("1e-400"), 0);
  EXPECT_EQ(NumberText::Leading("-1e-400 ms"), 0);
}

TEST(NumberConversion, ReadsABooleanFromItsWordOrFromANumber) {
  EXPECT_TRUE(English.ToBoolean("True"));
  EXPECT_TRUE(English.ToBoolean("tRUE "));
  EXPECT_TRUE(English.ToBoolean("-1"));
  EXPECT_TRUE(English.ToBoolean("0.5"));
  EXPECT_FALSE(English.ToBoolean("False"));
  EXPECT_FALSE(English.ToBoolean("0"));
  EXPECT_EQ(FailureOf([] { English.ToBoolean("yes"); }), TypeMismatch);
  EXPECT_EQ(FailureOf([] { English.ToBoolean(""); }), TypeMismatch);
}

}  // namespace
