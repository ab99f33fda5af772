#include "recorder/reading/quick_view_rows.h"

#include <gmock/gmock.h>

#include <charconv>
#include <limits>
#include <random>

#include "base/number_text.h"
#include "support/failures.h"

namespace {

using subroutines::QuickViewRows;
using ::testing::ElementsAre;
using Values = std::vector<float>;

Values Parse(const std::string& line) {
  QuickViewRows rows;
  rows.Rebuild(1);
  rows.ParseRecordLine(line, 0);
  Values values;
  for (std::size_t channel = 0; channel < QuickViewRows::Channels; ++channel) {
    values.push_back(rows.Column(channel)[0]);
  }
  return values;
}

/// A line whose first value has this text.
float FirstOf(const std::string& text) {
  return Parse("0;0;" + text + ";1;1;1;1;1;1;1")[0];
}

/// A line whose last value has this text.
float LastOf(const std::string& text) {
  return Parse("0;0;1;1;1;1;1;1;1;" + text)[7];
}

TEST(RecordLine, GivesTheEightValuesBehindCounterAndRamp) {
  EXPECT_THAT(Parse("12;99;1;-2;3.5;-4.25;0;1000;0.001;-0.5"),
              ElementsAre(1, -2, 3.5F, -4.25F, 0, 1000, 0.001F, -0.5F));
}

TEST(RecordLine, TakesTheRestOfTheLineAsTheLastValue) {
  EXPECT_EQ(LastOf("8;9;10"), 8);
  EXPECT_EQ(LastOf("8 "), 8);
}

TEST(RecordLine, ReadsWithAPointWhateverTheLocale) {
  EXPECT_EQ(FirstOf("1.5"), 1.5F);
  EXPECT_EQ(FirstOf("1,5"), 1);
}

TEST(RecordLine, ReadsANumberInAnyOfItsForms) {
  for (const auto& [text, value] : std::vector<std::pair<std::string, float>>{
           {"", 0.0F},
           {"-", 0.0F},
           {".", 0.0F},
           {".5", 0.5F},
           {"5.", 5.0F},
           {"+7", 7.0F},
           {" 7", 7.0F},
           {"1 2", 12.0F},
           {"7x", 7.0F},
           {"x7", 0.0F},
           {"1.2.3", 1.2F},
           {"1E3", 1000.0F},
           {"-2.5e-3", -0.0025F},
           {"nan", 0.0F},
           {"inf", 0.0F},
           {"1E-400", 0.0F},
           {"123456789012345", 123456789012345.0F},
           {"9007199254740993", 9007199254740993.0F},
           {"12345678901234567890123", 12345678901234567890123.0F},
           {"0.00000000000000000000000000012", 1.2e-28F},
           {"0000000000000000000000000007", 7.0F}}) {
    EXPECT_EQ(FirstOf(text), value) << text;
    EXPECT_EQ(LastOf(text), value) << text;
  }
}

TEST(RecordLine, RoundsALongNumberOnceAndNotByItsDigits) {
  // Just below the middle between two 64-bit floats, of which the upper one would round up.
  EXPECT_EQ(FirstOf("16777217.0000000017"), 16777216.0F);
  EXPECT_EQ(FirstOf("16777217.0000000019"), 16777218.0F);
}

TEST(RecordLine, RefusesANumberThatIsNo32BitFloat) {
  EXPECT_EQ(FirstOf("3.4028234663852886e38"), std::numeric_limits<float>::max());
  for (const char* text : {"1e39", "-1e39", "1e400"}) {
    EXPECT_EQ(support::FailureOf([&] { FirstOf(text); }), platform::failure::Overflow) << text;
    EXPECT_EQ(support::FailureOf([&] { LastOf(text); }), platform::failure::Overflow) << text;
  }
}

TEST(RecordLine, EndsItsLastFieldWhereTheLineEndsEarly) {
  EXPECT_THAT(Parse("0;0;1.5;2.7"), ElementsAre(1.5F, 2.7F, 0, 0, 0, 0, 0, 0));
  EXPECT_THAT(Parse("0;0;1.5;"), ElementsAre(1.5F, 0, 0, 0, 0, 0, 0, 0));
  EXPECT_THAT(Parse("0;0"), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
  EXPECT_THAT(Parse("0"), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
  EXPECT_THAT(Parse(""), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
}

TEST(RecordLine, ReplacesWhatItsRowHeld) {
  QuickViewRows rows;
  rows.Rebuild(2);
  rows.ParseRecordLine("0;0;1;2;3;4;5;6;7;8", 1);
  rows.ParseRecordLine("0;0;9", 1);
  EXPECT_THAT(rows.Column(0), ElementsAre(0, 9));
  EXPECT_THAT(rows.Column(7), ElementsAre(0, 0));
}

TEST(RecordLine, ReadsRandomNumbersAsTheGeneralConversionDoes) {
  std::mt19937_64 random(5);
  const platform::NumberText numbers;
  const auto expectSame = [](const std::string& text) {
    const auto wanted = static_cast<float>(platform::NumberText::Leading(text));
    ASSERT_EQ(FirstOf(text), wanted) << text;
    ASSERT_EQ(LastOf(text), wanted) << text;
  };
  for (int i = 0; i < 30'000; ++i) {
    const double fraction = std::uniform_real_distribution<double>(-1, 1)(random);
    const double value = std::ldexp(fraction, static_cast<int>(random() % 100) - 50);
    expectSame(numbers.General(value));
    expectSame(numbers.Format(value, "0.000"));
    // Digits and points as they come, with a few that many numbers share.
    std::string text;
    for (std::uint64_t k = random() % 24; k > 0; --k) text += "0123456789.-"[random() % 12];
    expectSame(text);
  }
}

}  // namespace
