#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/failure.h"
#include "recorder/writing/sample_format.h"

namespace packetroutines {

inline constexpr FormatFacts ComtradeFacts{"COMTRADE", ".dat", Sequel::Nothing};

/// Pairs of ASCII files in the manner of IEEE C37.111-1999: a data file with a line a sample, and a
/// configuration file that tells what the fields are. The configuration is begun with the first
/// ring and ended by the stop of the recording.
class ComtradeFormat : public SampleFormat {
 public:
  explicit ComtradeFormat(const WritingContext& context) : SampleFormat(ComtradeFacts, context) {}

  void Begin() override;
  /// In front of the first ring the configuration is begun. The lines of the second stream show the
  /// ring of the first one, in numbers without fixed decimals.
  bool Write(std::size_t stream) override;
  /// Ends the configuration; a box tells where that failed.
  void End() override;
  void EndForGood() override;
  /// The numbers of the new files begin at 0, since their configuration tells when and with which
  /// one they end.
  void EndPart() override;
  /// Appends the last lines of the configuration: rate, start and form of the data. It has no
  /// prefix, so beside two streams it is a third one.
  void FinishComtradeConfig();

 private:
  std::string ConfigPath(const std::string& prefix) const;
  /// The counted blocks of the files at hand.
  std::int32_t Counted() const { return context_.State.BlockCount - countedBefore_; }
  void BeginConfig(std::size_t stream);
  void WriteFile(const std::string& lines);
  void WriteConfig(const std::string& path, const std::string& lines);
  void AppendLine(std::size_t stream, std::int64_t number, std::int16_t cell);
  void TellOfEnd(const platform::Failure& met) const;
  std::string WhatOfTheSamples() const;

  /// The lines of a ring; it keeps its room from ring to ring.
  std::string lines_;
  /// Counted blocks in the files before those at hand.
  std::int32_t countedBefore_ = 0;
  /// A stream whose next ring begins new files in the midst of a recording.
  std::array<bool, 2> beginsAnew_{};
};

}  // namespace packetroutines
