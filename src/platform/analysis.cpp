#include "platform/analysis.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace platform {

namespace {

/// Sums f(x) in eight lanes: independent sums keep the adders busy and round less than one long
/// one.
template <typename Number, typename Function>
double Sum(std::span<const Number> x, Function f) {
  constexpr std::size_t Lanes = 8;
  std::array<double, Lanes> sums{};
  std::size_t i = 0;
  for (; i + Lanes <= x.size(); i += Lanes) {
    for (std::size_t lane = 0; lane < Lanes; ++lane) sums[lane] += f(x[i + lane]);
  }
  for (; i < x.size(); ++i) sums[0] += f(x[i]);
  return ((sums[0] + sums[1]) + (sums[2] + sums[3])) + ((sums[4] + sums[5]) + (sums[6] + sums[7]));
}

using Row = std::array<double, BlockMatrix::Channels>;

/// Sums f(cell, channel) down each channel. Two rows at a time have sums of their own, so that a
/// row need not wait for the one before.
template <typename Function>
Row SumRows(std::span<const double> cells, Function f) {
  constexpr std::size_t Channels = BlockMatrix::Channels;
  std::array<double, 2 * Channels> sums{};
  std::size_t i = 0;
  for (; i + sums.size() <= cells.size(); i += sums.size()) {
    for (std::size_t k = 0; k < sums.size(); ++k) sums[k] += f(cells[i + k], k % Channels);
  }
  for (std::size_t k = 0; i + k < cells.size(); ++k) sums[k] += f(cells[i + k], k);
  Row both;
  for (std::size_t k = 0; k < both.size(); ++k) both[k] = sums[k] + sums[k + Channels];
  return both;
}

}  // namespace

std::span<const double> CWArray::Column(const BlockMatrix& block, std::size_t channel) {
  const std::span<const double> cells = block.Cells();
  const auto rows = static_cast<std::size_t>(block.Rows());
  column_.resize(rows);
  for (std::size_t row = 0; row < rows; ++row) {
    column_[row] = cells[row * BlockMatrix::Channels + channel];
  }
  return column_;
}

double CWArray::Reduce(const BlockMatrix& block, double enough) {
  double largest = 0;
  for (const double cell : block.Cells()) {
    const double level = std::abs(cell);
    if (level >= enough) return level;
    largest = largest < level ? level : largest;
  }
  return largest;
}

void CWArray::Clear(std::span<double> values) {
  std::fill(values.begin(), values.end(), 0.0);
}

AcDc CWDSP::AcDcEstimate(std::span<const double> x) {
  if (x.empty()) return {};
  const auto n = static_cast<double>(x.size());
  const double mean = Sum(x, [](double value) { return value; }) / n;
  const double squares = Sum(x, [mean](double value) { return (value - mean) * (value - mean); });
  return {std::sqrt(squares / n), mean};
}

std::array<AcDc, BlockMatrix::Channels> CWDSP::AcDcEstimates(const BlockMatrix& block) {
  std::array<AcDc, BlockMatrix::Channels> estimates;
  if (block.Rows() == 0) return estimates;
  const auto n = static_cast<double>(block.Rows());
  Row mean = SumRows(block.Cells(), [](double value, std::size_t) { return value; });
  for (double& channel : mean) channel /= n;
  const Row squares = SumRows(block.Cells(), [&mean](double value, std::size_t channel) {
    return (value - mean[channel]) * (value - mean[channel]);
  });
  for (std::size_t k = 0; k < estimates.size(); ++k) {
    estimates[k] = {std::sqrt(squares[k] / n), mean[k]};
  }
  return estimates;
}

float CWStat::RootMeanSquare(std::span<const float> x) {
  if (x.empty()) return 0;
  const double squares = Sum(x, [](double value) { return value * value; });
  return static_cast<float>(std::sqrt(squares / static_cast<double>(x.size())));
}

}  // namespace platform
