#pragma once

#include <array>
#include <limits>
#include <span>
#include <vector>

#include "platform/block_matrix.h"

namespace platform {

/// The array control: operations on a whole block or on one channel of it.
class CWArray {
 public:
  /// The values of one channel in frame order. The result is valid until the next call.
  std::span<const double> Column(const BlockMatrix& block, std::size_t channel);
  /// The largest absolute value of the block. A balanced sine keeps its level under it, where a sum
  /// of all cells would cancel. Who asks only whether it reaches a level has the first value that
  /// does: a signal shows in its first rows.
  static double Reduce(const BlockMatrix& block,
                       double enough = std::numeric_limits<double>::infinity());
  /// Sets all values to 0.
  static void Clear(std::span<double> values);

 private:
  std::vector<double> column_;
};

/// AC and DC of one sequence, in the units of the sequence.
struct AcDc {
  /// Root mean square about the mean, so that an offset does not enter.
  double Ac = 0;
  /// Mean.
  double Dc = 0;
};

/// The signal control: the AC and DC estimator, without a window.
class CWDSP {
 public:
  static AcDc AcDcEstimate(std::span<const double> x);
  /// The estimate of each channel of a block. It goes through the rows as they lie in memory, which
  /// takes a third of the time that eight columns take.
  static std::array<AcDc, BlockMatrix::Channels> AcDcEstimates(const BlockMatrix& block);
};

/// The statistics control.
class CWStat {
 public:
  /// The root mean square of one sequence, in its units; 0 for an empty one.
  static float RootMeanSquare(std::span<const float> x);
};

}  // namespace platform
