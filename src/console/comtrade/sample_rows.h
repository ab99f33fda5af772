#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "console/comtrade/comtrade_head.h"

namespace console {

/// The samples of a COMTRADE data file: each as its number, its time stamp and a stored number for
/// each channel, in the form of the configuration.
///
/// A missing value is 99999 in text, the least integer of 16 or 32 bits, or a float that is no
/// number. A sample that was lost stands as one whose values are all missing, so that a reader that
/// goes by the rate and one that goes by the time stamps agree on when the others were.
class SampleRows {
 public:
  explicit SampleRows(ComtradeForm form) : form_(form) {}

  /// Numbers and time stamps have four bytes in the binary forms.
  static constexpr std::int64_t MostSamples = 0xFFFF'FFFF;

  /// Writes the sample of this number, from 1 on, behind a text that grows. What is no number
  /// counts as missing; the others lie in the range of the form.
  void Append(std::string& bytes, std::int64_t number, std::span<const double> stored) const;
  /// The bytes of so many samples in a binary form, whose samples have all the same length.
  std::int64_t BinaryBytes(std::int64_t samples, std::size_t channels) const;

 private:
  void AppendLine(std::string& bytes, std::int64_t number, std::span<const double> stored) const;
  void AppendRecord(std::string& bytes, std::int64_t number, std::span<const double> stored) const;

  ComtradeForm form_;
};

}  // namespace console
