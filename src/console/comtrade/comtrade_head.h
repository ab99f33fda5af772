#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/local_time.h"

namespace console {

/// The editions of the standard: IEEE C37.111-1999, and IEEE C37.111-2013, which is
/// IEC 60255-24:2013.
enum class ComtradeEdition { Of1999, Of2013 };

/// How the samples are stored: numbers in lines of text, or little-endian integers of 16 or 32 bits
/// or floats of 32 bits. The last two came with the edition of 2013.
enum class ComtradeForm { Ascii, Binary, Binary32, Float32 };

/// The whole numbers that a form can hold, without the one that stands for a missing value.
struct StoredRange {
  double Least = 0;
  double Greatest = 0;
};
StoredRange RangeOf(ComtradeForm form);

/// An analog channel: a stored number x means the value `Factor` * x, in primary units.
struct ComtradeChannel {
  std::string Name;
  /// Up to two characters, such as "A".
  std::string Phase;
  std::string Unit;
  double Factor = 1;
  /// The stored numbers lie between these.
  double Least = 0;
  double Greatest = 0;
};

/// What is told of the samples in front of them or in a file beside: the configuration.
struct ComtradeHead {
  ComtradeEdition Edition = ComtradeEdition::Of1999;
  ComtradeForm Form = ComtradeForm::Ascii;
  std::string Station;
  std::vector<ComtradeChannel> Channels;
  /// Of the mains, in Hz.
  double Frequency = 50;
  /// Samples a second.
  double Rate = 4000;
  /// Those that are stored, missing ones too.
  std::int64_t Samples = 0;
  /// When the first sample was taken, by the clock on the wall, and the microseconds behind that.
  platform::LocalTime Start;
  std::int32_t StartMicroseconds = 0;
  /// What that clock is ahead of Greenwich; told since 2013.
  std::chrono::minutes AheadOfGreenwich{0};
};

/// What has recorded: the program and its version.
std::string ComtradeDevice();

/// The factor that stands in a configuration for this one, which has too many digits for it at
/// times. Numbers are to be stored by that which stands there.
double WrittenFactor(double factor);

/// The frequency of the mains, in Hz, for which a rate is made, as far as the rate tells it.
double UsualFrequency(double rate);

/// The lines of a configuration.
std::string ConfigurationText(const ComtradeHead& head);

/// The most characters of names in a configuration.
inline constexpr std::size_t LongestComtradeName = 64;

/// What keeps a name out of a configuration of that edition, as a sentence; nothing where it fits.
std::string UnfitComtradeName(std::string_view name, ComtradeEdition edition);

/// A name in UTF-8 as a configuration of 2013 takes it: what it has no room for is left out, and
/// "_" stands for what would end the field.
std::string FitComtradeName(std::string_view name);

}  // namespace console
