#pragma once

#include <cstdint>
#include <span>

#include "base/number_text.h"
#include "base/program.h"
#include "capture/acquisition_state.h"
#include "capture/block_arrays.h"
#include "capture/packet_bytes.h"
#include "capture/record_rings.h"
#include "capture/retry_box.h"
#include "config/settings.h"
#include "forms/values_controls.h"
#include "platform/analysis.h"

namespace packetroutines {

/// Turns the bytes of a frame into one row of engineering values, and copies finished rows into the
/// record rings. It runs once per frame and is the hottest path of the program.
class SignalBuilder {
 public:
  SignalBuilder(AcquisitionState& state, BlockArrays& block, RecordRings& rings,
                const config::RunSettings& present, forms::ValuesControls& values,
                const platform::NumberText& numbers, RetryBox& retry, platform::Program& program);

  /// Writes row `row` of the first stream. `signalOk` becomes False where the block is silent, that
  /// is where no cell of it reaches 0.1 in the chosen units; the level is looked at only in the row
  /// that completes a block, since nobody reads the verdict of another row.
  void BuildingSignals(std::int32_t row, const PacketBytes& bytes, bool& signalOk);
  /// Writes row `row` of the second stream, always in amperes and kilovolts.
  void BuildingSignals2(std::int32_t row, const PacketBytes& bytes, bool& signalOk);
  /// The first stream's block is complete.
  void KeepBlock() { block_.KeepBlock(); }
  /// Copies a row of the block into cell `ringIndex` of the rings.
  void StoreRecordSample(std::int16_t ringIndex, std::int32_t row);
  void StoreRecordSample2(std::int16_t ringIndex, std::int32_t row);

 private:
  void TakeRow(std::int32_t row, const PacketBytes& bytes);
  /// Takes what is there of a frame that may end within its samples, or has none at all.
  void TakeCells(std::span<double, platform::channels::Count> values,
                 const PacketBytes& bytes) const;
  /// A raw value in the chosen units.
  double InUnits(double raw, std::size_t channel) const;
  void TestSilence(std::int32_t row, bool& signalOk);
  void RealTimeValue();

  AcquisitionState& state_;
  BlockArrays& block_;
  RecordRings& rings_;
  const config::RunSettings& present_;
  forms::ValuesControls& values_;
  const platform::NumberText& numbers_;
  RetryBox& retry_;
  platform::Program& program_;
  platform::CWArray array_;
};

}  // namespace packetroutines
