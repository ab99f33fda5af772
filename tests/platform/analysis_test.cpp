#include "platform/analysis.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include "base/failure.h"
#include "support/failures.h"

namespace {

using platform::AcDc;
using platform::BlockMatrix;
using platform::CWArray;
using platform::CWDSP;
using platform::failure::SubscriptOutOfRange;
using support::FailureOf;
using testing::Each;
using testing::ElementsAre;

/// AC and DC written down from their definitions, one sample after the other.
AcDc NaiveAcDc(const std::vector<double>& x) {
  long double sum = 0;
  for (const double value : x) sum += value;
  const long double mean = sum / static_cast<long double>(x.size());
  long double squares = 0;
  for (const double value : x) squares += (value - mean) * (value - mean);
  return {static_cast<double>(std::sqrt(squares / static_cast<long double>(x.size()))),
          static_cast<double>(mean)};
}

std::vector<double> Sine(int samples, double amplitude, double offset) {
  std::vector<double> x;
  for (int i = 0; i < samples; ++i) {
    x.push_back(offset + amplitude * std::sin(2 * std::numbers::pi * i / 80.0));
  }
  return x;
}

TEST(AcDcEstimate, AgreesWithTheDefinitionOverRandomSignals) {
  std::mt19937 random(20240607);
  std::uniform_int_distribution<int> lengths(1, 1000);
  std::uniform_real_distribution<double> levels(-6, 6);
  std::uniform_real_distribution<double> noise(-1, 1);
  for (int signal = 0; signal < 200; ++signal) {
    const double amplitude = std::pow(10, levels(random));
    const double offset = 10 * amplitude * noise(random);
    std::vector<double> x(static_cast<std::size_t>(lengths(random)));
    for (double& value : x) value = offset + amplitude * noise(random);

    const AcDc expected = NaiveAcDc(x);
    const AcDc actual = CWDSP::AcDcEstimate(x);

    EXPECT_NEAR(actual.Ac, expected.Ac, 1e-12 * amplitude) << x.size() << " samples";
    EXPECT_NEAR(actual.Dc, expected.Dc, 1e-12 * amplitude) << x.size() << " samples";
  }
}

TEST(AcDcEstimate, OfASineOverWholePeriodsIsItsRms) {
  const AcDc estimate = CWDSP::AcDcEstimate(Sine(400, 100 * std::numbers::sqrt2, 0));

  EXPECT_NEAR(estimate.Ac, 100, 1e-10);
  EXPECT_NEAR(estimate.Dc, 0, 1e-10);
}

TEST(AcDcEstimate, TheOffsetIsTheDcAndDoesNotEnterTheAc) {
  const AcDc estimate = CWDSP::AcDcEstimate(Sine(400, 100 * std::numbers::sqrt2, -5000));

  EXPECT_NEAR(estimate.Ac, 100, 1e-9);
  EXPECT_NEAR(estimate.Dc, -5000, 1e-9);
}

TEST(AcDcEstimate, OfAConstantIsAllDc) {
  const AcDc estimate = CWDSP::AcDcEstimate(std::vector<double>(400, 7.25));

  EXPECT_EQ(estimate.Ac, 0);
  EXPECT_EQ(estimate.Dc, 7.25);
}

TEST(AcDcEstimate, OfNoSamplesIsZero) {
  const AcDc estimate = CWDSP::AcDcEstimate({});

  EXPECT_EQ(estimate.Ac, 0);
  EXPECT_EQ(estimate.Dc, 0);
}

TEST(AcDcEstimates, OfABlockAreThoseOfItsColumns) {
  std::mt19937 random(61850);
  std::uniform_real_distribution<double> noise(-1, 1);
  for (std::int32_t rows = 0; rows < 130; ++rows) {
    BlockMatrix block;
    block.Rebuild(rows);
    for (std::int32_t row = 0; row < rows; ++row) {
      for (std::size_t k = 0; k < 8; ++k) {
        block.Row(row)[k] = std::pow(10.0, k) * (static_cast<double>(k) + noise(random));
      }
    }

    const auto estimates = CWDSP::AcDcEstimates(block);

    CWArray array;
    for (std::size_t k = 0; k < 8; ++k) {
      const AcDc expected = CWDSP::AcDcEstimate(array.Column(block, k));
      const double level = 1e-12 * std::pow(10.0, k);
      EXPECT_NEAR(estimates[k].Ac, expected.Ac, level) << rows << " rows, channel " << k;
      EXPECT_NEAR(estimates[k].Dc, expected.Dc, level) << rows << " rows, channel " << k;
    }
  }
}

TEST(ColumnExtraction, GivesTheValuesOfOneChannelInFrameOrder) {
  BlockMatrix block;
  block.Rebuild(3);
  for (std::int32_t row = 0; row < 3; ++row) {
    for (std::size_t channel = 0; channel < 8; ++channel) {
      block.Row(row)[channel] = 10.0 * row + static_cast<double>(channel);
    }
  }
  CWArray array;

  EXPECT_THAT(array.Column(block, 0), ElementsAre(0, 10, 20));
  EXPECT_THAT(array.Column(block, 7), ElementsAre(7, 17, 27));
}

TEST(BlockReduction, IsTheLargestLevelOfTheBlock) {
  std::mt19937 random(2003);
  std::uniform_real_distribution<double> noise(-1000, 1000);
  for (int signal = 0; signal < 50; ++signal) {
    const std::int32_t rows = 1 + signal * signal;
    BlockMatrix block;
    block.Rebuild(rows);
    double largest = 0;
    for (std::int32_t row = 0; row < rows; ++row) {
      for (double& cell : block.Row(row)) {
        cell = noise(random);
        largest = std::max(largest, std::abs(cell));
      }
    }

    EXPECT_EQ(CWArray::Reduce(block), largest) << rows << " rows";
  }
}

TEST(BlockReduction, FindsASingleNegativeCellOnAnyChannel) {
  for (std::size_t channel = 0; channel < 8; ++channel) {
    BlockMatrix block;
    block.Rebuild(400);
    block.Row(399)[channel] = -0.5;

    EXPECT_EQ(CWArray::Reduce(block), 0.5) << channel;
  }
}

TEST(BlockReduction, LooksNoFurtherThanForALevelThatIsReached) {
  BlockMatrix block;
  block.Rebuild(400);
  block.Row(2)[3] = -0.25;
  block.Row(300)[0] = 7;

  EXPECT_EQ(CWArray::Reduce(block, 0.25), 0.25);
  EXPECT_EQ(CWArray::Reduce(block, 0.5), 7);
  EXPECT_EQ(CWArray::Reduce(block, 8), 7);
}

TEST(BlockReduction, DoesNotCancelABalancedSine) {
  BlockMatrix block;
  block.Rebuild(400);
  const std::vector<double> sine = Sine(400, 10, 0);
  for (std::int32_t row = 0; row < 400; ++row) block.Row(row)[0] = sine[row];

  EXPECT_NEAR(CWArray::Reduce(block), 10, 1e-9);
}

TEST(BlockReduction, OfAnEmptyBlockIsZero) {
  BlockMatrix block;
  EXPECT_EQ(CWArray::Reduce(block), 0);

  block.Rebuild(400);
  EXPECT_EQ(CWArray::Reduce(block), 0);
}

TEST(BlockMatrix, ARowOutsideTheBlockFails) {
  BlockMatrix block;
  EXPECT_EQ(FailureOf([&] { block.Row(0); }), SubscriptOutOfRange);

  block.Rebuild(400);
  EXPECT_EQ(FailureOf([&] { block.Row(0); }), 0);
  EXPECT_EQ(FailureOf([&] { block.Row(399); }), 0);
  EXPECT_EQ(FailureOf([&] { block.Row(400); }), SubscriptOutOfRange);
  EXPECT_EQ(FailureOf([&] { block.Row(-1); }), SubscriptOutOfRange);
  const BlockMatrix& same = block;
  EXPECT_EQ(FailureOf([&] { same.Row(400); }), SubscriptOutOfRange);
}

TEST(BlockMatrix, ARebuildGivesEmptyCellsInTheNewSize) {
  BlockMatrix block;
  block.Rebuild(400);
  block.Row(0)[0] = 1;
  block.Row(399)[7] = 1;

  block.Rebuild(500);

  EXPECT_EQ(block.Rows(), 500);
  EXPECT_EQ(block.Cells().size(), 4000U);
  EXPECT_THAT(block.Cells(), Each(0.0));
}

}  // namespace
