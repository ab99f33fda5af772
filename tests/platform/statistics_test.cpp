#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

#include "platform/analysis.h"

namespace {

using platform::CWStat;

TEST(Statistics, TheRootMeanSquareKeepsAnOffset) {
  EXPECT_EQ(CWStat::RootMeanSquare(std::vector<float>(400, -3)), 3);
  EXPECT_EQ(CWStat::RootMeanSquare(std::vector<float>{1, 7}), 5);
}

TEST(Statistics, TheRootMeanSquareOfASineIsItsPeakByTheRootOfTwo) {
  std::vector<float> sine;
  for (int i = 0; i < 400; ++i) {
    sine.push_back(static_cast<float>(100 * std::sin(2 * std::numbers::pi * i / 80)));
  }
  EXPECT_NEAR(CWStat::RootMeanSquare(sine), 100 / std::numbers::sqrt2, 1e-5);
}

TEST(Statistics, TheRootMeanSquareCountsEveryValueOfAnyLength) {
  for (std::size_t length = 1; length < 40; ++length) {
    std::vector<float> x(length);
    x.back() = static_cast<float>(length);
    const double wanted = std::sqrt(static_cast<double>(length));
    EXPECT_FLOAT_EQ(CWStat::RootMeanSquare(x), static_cast<float>(wanted));
  }
}

TEST(Statistics, TheRootMeanSquareOfLargeFloatsDoesNotOverflow) {
  EXPECT_EQ(CWStat::RootMeanSquare(std::vector<float>(3, 3e38F)), 3e38F);
}

TEST(Statistics, TheRootMeanSquareOfNothingIsZero) {
  EXPECT_EQ(CWStat::RootMeanSquare({}), 0);
}

}  // namespace
