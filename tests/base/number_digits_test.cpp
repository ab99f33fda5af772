#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <ostream>
#include <random>
#include <string>

#include "base/number_text.h"
#include "base/plain_numbers.h"

namespace {

using base_tests::Printed;
using platform::NumberLocale;
using platform::NumberText;

constexpr int Draws = 130'000;

/// A way to draw numbers that a writer may meet.
struct Kind {
  const char* Name;
  std::function<double(std::mt19937_64&)> Draw;
  friend void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.Name; }
};

double AnyPattern(std::mt19937_64& random) {
  for (;;) {
    const double value = std::bit_cast<double>(random());
    if (std::isfinite(value)) return value;
  }
}

double Raw(std::mt19937_64& random) {
  return static_cast<std::int32_t>(random());
}

const Kind Kinds[] = {
    {"AnyBitPattern", AnyPattern},
    {"MilliampereInAmpere", [](std::mt19937_64& random) { return Raw(random) * 0.001; }},
    {"TensOfMillivoltInKilovolt",
     [](std::mt19937_64& random) { return Raw(random) * 0.01 * 0.001F; }},
    {"Halves", [](std::mt19937_64& random) { return (Raw(random) + 0.5) / 1000; }},
    {"Dyadic",
     [](std::mt19937_64& random) {
       return std::ldexp(Raw(random), -static_cast<int>(random() % 48));
     }},
    {"MiddlesOfFifteenDigits",
     [](std::mt19937_64& random) {
       return static_cast<double>(100'000'000'000'000 + random() % 900'000'000'000'000) + 0.5;
     }},
    {"BesidePowersOfTen",
     [](std::mt19937_64& random) {
       const double power = std::pow(10.0, static_cast<int>(random() % 40) - 20);
       const auto bits = std::bit_cast<std::int64_t>(power);
       return std::bit_cast<double>(bits + static_cast<std::int64_t>(random() % 9) - 4);
     }},
    {"Magnitudes",
     [](std::mt19937_64& random) {
       return std::pow(10.0, std::uniform_real_distribution<double>(-12, 20)(random));
     }},
};

class Digits : public testing::TestWithParam<Kind> {
 protected:
  std::mt19937_64 random{20240309};
};

TEST_P(Digits, OfTheGeneralFormAreThoseOfTheLibrary) {
  const NumberText numbers;
  for (int i = 0; i < Draws; ++i) {
    const double value = GetParam().Draw(random);
    std::string text;
    numbers.AppendGeneral(text, value);
    ASSERT_EQ(text, Printed(value)) << Printed(value, "%a");
  }
}

TEST_P(Digits, OfThreeDecimalsAreRoundedOnFifteenDigits) {
  const NumberText numbers;
  for (int i = 0; i < Draws; ++i) {
    const double value = GetParam().Draw(random);
    std::string text;
    numbers.AppendFormat(text, value, "0.000");
    ASSERT_EQ(text, base_tests::WithDecimals(value, 3)) << Printed(value, "%a");
  }
}

INSTANTIATE_TEST_SUITE_P(NumberText, Digits, testing::ValuesIn(Kinds),
                         [](const auto& kind) { return std::string(kind.param.Name); });

TEST(AppendedNumbers, StandBehindWhatIsThere) {
  const NumberText numbers(NumberLocale{',', '.'});
  std::string text = "a;";
  numbers.AppendGeneral(text, 1.5);
  text += ';';
  numbers.AppendFormat(text, -1234.5678, "###,##0.00");
  text += ';';
  NumberText::AppendGeneral(text, std::int64_t{-9'000'000'000});
  EXPECT_EQ(text, "a;1,5;-1.234,57;-9000000000");
}

TEST(AppendedNumbers, AllocateNothingWhereTheTextHasRoom) {
  std::string text;
  text.reserve(100);
  const char* place = text.data();
  NumberText().AppendGeneral(text, 123456.789012345);
  NumberText().AppendFormat(text, 123456.789, "0.000");
  EXPECT_EQ(text.data(), place);
}

TEST(AppendedNumbers, NameWhatIsNoNumber) {
  const double infinite = std::numeric_limits<double>::infinity();
  EXPECT_EQ(NumberText().General(infinite), "inf");
  EXPECT_EQ(NumberText().General(-infinite), "-inf");
  EXPECT_EQ(NumberText().General(std::nan("")), "nan");
  EXPECT_EQ(NumberText().Format(infinite, "0.000"), "inf");
}

TEST(AppendedNumbers, KeepTheSignOfZero) {
  EXPECT_EQ(NumberText().General(0.0), "0");
  EXPECT_EQ(NumberText().General(-0.0), "-0");
  EXPECT_EQ(NumberText().Format(-0.0, "0.000"), "0.000");
}

}  // namespace
