#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <ostream>

#include "base/number_text.h"

namespace {

using platform::NumberText;

constexpr std::array<const char*, 10> Patterns = {"###,###,##0.0000",
                                                  "###,###,##0.000",
                                                  "###,###,##0.00",
                                                  "###,###,###,##0.0",
                                                  "###,###,###,##0",
                                                  "0.0000",
                                                  "0.000",
                                                  "0.00",
                                                  "0.0",
                                                  "0"};

/// A value and how it reads through the ten patterns.
struct Row {
  double Value;
  std::array<const char*, 10> Texts;
  friend void PrintTo(const Row& row, std::ostream* out) { *out << row.Texts[5]; }
};

const Row Rows[] = {
    {1234.5,
     {"1,234.5000", "1,234.500", "1,234.50", "1,234.5", "1,235", "1234.5000", "1234.500", "1234.50",
      "1234.5", "1235"}},
    {-1234.5,
     {"-1,234.5000", "-1,234.500", "-1,234.50", "-1,234.5", "-1,235", "-1234.5000", "-1234.500",
      "-1234.50", "-1234.5", "-1235"}},
    {0, {"0.0000", "0.000", "0.00", "0.0", "0", "0.0000", "0.000", "0.00", "0.0", "0"}},
    {123456789.5,
     {"123,456,789.5000", "123,456,789.500", "123,456,789.50", "123,456,789.5", "123,456,790",
      "123456789.5000", "123456789.500", "123456789.50", "123456789.5", "123456790"}},
    {999.9995,
     {"999.9995", "1,000.000", "1,000.00", "1,000.0", "1,000", "999.9995", "1000.000", "1000.00",
      "1000.0", "1000"}},
    {0.125, {"0.1250", "0.125", "0.13", "0.1", "0", "0.1250", "0.125", "0.13", "0.1", "0"}},
    {-0.0004, {"-0.0004", "0.000", "0.00", "0.0", "0", "-0.0004", "0.000", "0.00", "0.0", "0"}},
    {123456,
     {"123,456.0000", "123,456.000", "123,456.00", "123,456.0", "123,456", "123456.0000",
      "123456.000", "123456.00", "123456.0", "123456"}},
};

class TenPatterns : public testing::TestWithParam<Row> {};

TEST_P(TenPatterns, ShowAValueEachInItsDecimalsAndGroups) {
  for (std::size_t i = 0; i < Patterns.size(); ++i) {
    EXPECT_EQ(NumberText().Format(GetParam().Value, Patterns[i]), GetParam().Texts[i])
        << Patterns[i];
  }
}

INSTANTIATE_TEST_SUITE_P(Values, TenPatterns, testing::ValuesIn(Rows));

std::string Shown(double value, const char* pattern) {
  return NumberText().Format(value, pattern);
}

TEST(NumberFormat, RoundsHalfAwayFromZero) {
  EXPECT_EQ(Shown(0.5, "0"), "1");
  EXPECT_EQ(Shown(1.5, "0"), "2");
  EXPECT_EQ(Shown(2.5, "0"), "3");
  EXPECT_EQ(Shown(-2.5, "0"), "-3");
  EXPECT_EQ(Shown(0.25, "0.0"), "0.3");
  EXPECT_EQ(Shown(-0.125, "0.00"), "-0.13");
}

TEST(NumberFormat, RoundsTheDecimalValueAndNotItsBinaryNeighbour) {
  EXPECT_EQ(Shown(1.005, "0.00"), "1.01");
  EXPECT_EQ(Shown(2.675, "0.00"), "2.68");
  EXPECT_EQ(Shown(1.00499, "0.00"), "1.00");
  EXPECT_EQ(Shown(0.1 + 0.2, "0.0000"), "0.3000");
}

TEST(NumberFormat, CarriesThroughAllNines) {
  EXPECT_EQ(Shown(9.99995, "0.0000"), "10.0000");
  EXPECT_EQ(Shown(999999.5, "###,###,##0"), "1,000,000");
  EXPECT_EQ(Shown(0.99996, "0.0000"), "1.0000");
}

TEST(NumberFormat, AValueThatRoundsToZeroHasNoSign) {
  EXPECT_EQ(Shown(-0.00004, "0.0000"), "0.0000");
  EXPECT_EQ(Shown(-0.0, "0.00"), "0.00");
  EXPECT_EQ(Shown(-1e-300, "0"), "0");
  EXPECT_EQ(Shown(-0.00005, "0.0000"), "-0.0001");
}

TEST(NumberFormat, GroupsBeyondThePlacesOfThePattern) {
  EXPECT_EQ(Shown(1234567890123.0, "###,###,##0.00"), "1,234,567,890,123.00");
  EXPECT_EQ(Shown(1e20, "###,###,###,##0"), "100,000,000,000,000,000,000");
}

TEST(NumberFormat, APatternWithoutADigitPlaceGivesTheGeneralForm) {
  EXPECT_EQ(Shown(1234.5, ""), "1234.5");
}

TEST(NumberFormat, TakesTheSeparatorsOfTheLocale) {
  const NumberText german({',', '.'});

  EXPECT_EQ(german.Format(1234567.5, "###,###,##0.00"), "1.234.567,50");
  EXPECT_EQ(german.Format(-1234.5, "0.0"), "-1234,5");
  EXPECT_EQ(german.General(0.25), "0,25");
  EXPECT_EQ(german.General(18.75F), "18,75");
}

TEST(GeneralForm, OfADoubleHasAsManyDigitsAsItNeeds) {
  const NumberText numbers;

  EXPECT_EQ(numbers.General(0.0), "0");
  EXPECT_EQ(numbers.General(3.6), "3.6");
  EXPECT_EQ(numbers.General(-12.0), "-12");
  EXPECT_EQ(numbers.General(0.0001), "0.0001");
  EXPECT_EQ(numbers.General(1234567.25), "1234567.25");
}

TEST(GeneralForm, OfADoubleHasAtMostFifteenDigits) {
  const NumberText numbers;

  EXPECT_EQ(numbers.General(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(numbers.General(0.1 + 0.2), "0.3");
  EXPECT_EQ(numbers.General(123456789012345.0), "123456789012345");
  EXPECT_EQ(numbers.General(1234567890123456.0), "1.23456789012346E+15");
}

TEST(GeneralForm, OfADoubleTurnsToAnExponentOutsideItsDigits) {
  const NumberText numbers;

  EXPECT_EQ(numbers.General(1e15), "1E+15");
  EXPECT_EQ(numbers.General(1e-5), "1E-05");
  EXPECT_EQ(numbers.General(-2.5e-7), "-2.5E-07");
  EXPECT_EQ(numbers.General(1e100), "1E+100");
}

TEST(GeneralForm, OfAFloatIsTheShortestTextThatReadsBackTheSame) {
  const NumberText numbers;

  EXPECT_EQ(numbers.General(0.0F), "0");
  EXPECT_EQ(numbers.General(50.0F), "50");
  EXPECT_EQ(numbers.General(0.1F), "0.1");
  EXPECT_EQ(numbers.General(18.75F), "18.75");
  EXPECT_EQ(numbers.General(16.666666F), "16.666666");
  EXPECT_EQ(numbers.General(-0.5F), "-0.5");
  EXPECT_EQ(numbers.General(1e10F), "1E+10");
}

TEST(GeneralForm, OfAFloatReadsBackAsTheSameFloat) {
  const NumberText german({',', '.'});
  for (const float value : {0.1F, 1.0F / 3, 49.98F, 1.5e-7F, 3.4e38F, -16777216.0F}) {
    EXPECT_EQ(german.ToSingle(german.General(value)), value) << german.General(value);
  }
}

TEST(GeneralForm, OfAnIntegerIsItsDigitsAndOfABooleanItsWord) {
  EXPECT_EQ(NumberText::General(std::int32_t{-2147483648}), "-2147483648");
  EXPECT_EQ(NumberText::General(std::int16_t{32767}), "32767");
  EXPECT_EQ(NumberText::General(true), "True");
  EXPECT_EQ(NumberText::General(false), "False");
}

}  // namespace
