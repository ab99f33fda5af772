#include "console/comtrade/sample_rows.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "support/failures.h"

namespace console {
namespace {

constexpr double Missing = std::numeric_limits<double>::quiet_NaN();

std::string Row(ComtradeForm form, const std::array<double, 3>& stored) {
  std::string bytes;
  SampleRows(form).Append(bytes, 258, stored);
  return bytes;
}

std::string Bytes(std::initializer_list<int> bytes) {
  std::string text;
  for (const int byte : bytes) text += static_cast<char>(byte);
  return text;
}

TEST(SampleRows, InTextHoldWholeNumbersAndCountPeriods) {
  EXPECT_EQ(Row(ComtradeForm::Ascii, {-99'999, 99'998, Missing}), "258,257,-99999,99998,99999\r\n");
}

TEST(SampleRows, OfSixteenBitsBeginWithTheLowestByte) {
  EXPECT_EQ(Row(ComtradeForm::Binary, {-2, 32'767, Missing}),
            Bytes({2, 1, 0, 0, 1, 1, 0, 0, 0xFE, 0xFF, 0xFF, 0x7F, 0x00, 0x80}));
}

TEST(SampleRows, OfThirtyTwoBitsHoldEveryCountOfTheWire) {
  EXPECT_EQ(Row(ComtradeForm::Binary32, {-2'147'483'647, 1, Missing}),
            Bytes({2, 1, 0, 0, 1, 1, 0, 0, 1, 0, 0, 0x80, 1, 0, 0, 0, 0, 0, 0, 0x80}));
}

TEST(SampleRows, OfFloatsMissAValueAsOneThatIsNoNumber) {
  EXPECT_EQ(Row(ComtradeForm::Float32, {1, -0.5, Missing}),
            Bytes({2, 1, 0, 0, 1, 1, 0, 0, 0, 0, 0x80, 0x3F, 0, 0, 0, 0xBF, 0, 0, 0xC0, 0x7F}));
}

TEST(SampleRows, AreAsLongAsTold) {
  for (const ComtradeForm form :
       {ComtradeForm::Binary, ComtradeForm::Binary32, ComtradeForm::Float32}) {
    EXPECT_EQ(SampleRows(form).BinaryBytes(10, 3),
              10 * static_cast<std::int64_t>(Row(form, {1, 2, 3}).size()));
  }
}

TEST(SampleRows, EndWhereTheirNumberHasNoMoreBytes) {
  const SampleRows rows(ComtradeForm::Binary);
  const std::array<double, 1> stored{1};
  std::string bytes;

  rows.Append(bytes, 4'294'967'295, stored);
  EXPECT_EQ(bytes, Bytes({0xFF, 0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 1, 0}));
  EXPECT_EQ(support::FailureOf([&] { rows.Append(bytes, 4'294'967'296, stored); }),
            platform::failure::Overflow);
}

TEST(SampleRows, RefuseANumberThatTheirFormCannotHold) {
  EXPECT_EQ(support::FailureOf([] {
              Row(ComtradeForm::Binary, {32'768, 0, 0});
            }),
            platform::failure::Overflow);
}

}  // namespace
}  // namespace console
