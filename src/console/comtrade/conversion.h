#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "console/comtrade/comtrade_file.h"
#include "console/comtrade/text_samples.h"

namespace console {

/// A unit of the Setup view: its name, and the step of the values on the wire in it, which are
/// whole mA and tens of mV (IEC 61850-9-2LE).
struct RecordedUnit {
  std::string Name;
  double Step = 1;
};
/// Units that the values of a recording may have; nothing where there is no such one.
std::optional<RecordedUnit> CurrentUnit(const std::string& name);
std::optional<RecordedUnit> VoltageUnit(const std::string& name);

/// What a text recording is made into.
struct Conversion {
  ComtradeFiles Files = ComtradeFiles::Pair;
  /// Its channels, frequency and rate are found in the recording.
  ComtradeHead Head;
  std::array<std::string, TextSamples::Channels> Names = {"Ia", "Ib", "Ic", "In",
                                                          "Va", "Vb", "Vc", "Vn"};
  RecordedUnit Current{"A", 1e-3};
  RecordedUnit Voltage{"kV", 1e-5};
  /// What the counter and the mains do, where the recording is not to tell it.
  std::optional<std::int32_t> Round;
  std::optional<double> Frequency;
};

/// What became of it: samples of the recording and of the files, and where they differ.
struct Converted {
  std::int64_t Read = 0;
  std::int64_t Written = 0;
  std::int64_t Missing = 0;
  std::int64_t Doubled = 0;
  std::int64_t Late = 0;
  std::int64_t BeforeFirst = 0;
  bool Cut = false;
};

/// Makes a text recording into the COMTRADE files under a path without an extension. They have
/// their names when they are whole, and take those of older ones then; whatever fails leaves
/// nothing of them. A failure that lies in the recording names the line.
///
/// The recording is read twice, once for the extent of its values, by which they are scaled: so
/// finely as the form allows, and never more finely than the wire does.
Converted Convert(platform::FileSystem& files, const std::string& recording,
                  const Conversion& conversion, const std::string& path);

}  // namespace console
