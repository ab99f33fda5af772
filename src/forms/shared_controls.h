#pragma once

#include <array>

#include "platform/controls/label.h"
#include "platform/controls/option_button.h"
#include "platform/controls/quiet_line.h"

namespace forms {

/// `Option3`: the first of each view's pair of stations; the other one follows it.
namespace station {
inline constexpr std::size_t Values = 0;
inline constexpr std::size_t Waveforms = 2;
inline constexpr std::size_t Phasor = 4;
inline constexpr std::size_t Report = 6;
inline constexpr std::size_t Count = 8;
}  // namespace station

/// `Shape12`: the lamps that show a running capture.
namespace indicator {
inline constexpr std::size_t Values = 0;
inline constexpr std::size_t Phasor = 1;
inline constexpr std::size_t Waveforms = 2;
inline constexpr std::size_t Report = 3;
inline constexpr std::size_t Count = 4;
}  // namespace indicator

/// `Picture1`: the logos of the views.
namespace logo {
inline constexpr std::size_t Waveforms = 0;
inline constexpr std::size_t Recorder = 1;
inline constexpr std::size_t Report = 2;
inline constexpr std::size_t Setup = 3;
inline constexpr std::size_t Values = 4;
inline constexpr std::size_t Phasor = 5;
inline constexpr std::size_t Count = 6;
}  // namespace logo

/// `Label3`: the support address, and captions of the Recorder view.
namespace side_caption {
inline constexpr std::size_t Support = 0;
inline constexpr std::size_t Voltage = 5;
inline constexpr std::size_t Current = 6;
inline constexpr std::size_t SampleDifference = 9;
inline constexpr std::size_t OverflowValue = 22;
inline constexpr std::size_t Seconds = 23;
inline constexpr std::size_t TimeAround = 24;
inline constexpr std::size_t Pause = 28;
inline constexpr std::size_t Count = 29;
}  // namespace side_caption

/// `QuietLine`: the views that have one.
namespace quiet_line {
inline constexpr std::size_t Values = 0;
inline constexpr std::size_t Phasor = 1;
inline constexpr std::size_t Waveforms = 2;
inline constexpr std::size_t Recorder = 3;
inline constexpr std::size_t Report = 4;
inline constexpr std::size_t Setup = 5;
inline constexpr std::size_t Count = 6;
}  // namespace quiet_line

/// The arrays whose members stand on several views.
struct SharedControls {
  SharedControls();

  std::array<platform::OptionButton, station::Count> Option3;
  std::array<platform::Shape, indicator::Count> Shape12;
  std::array<platform::PictureBox, logo::Count> Picture1;
  std::array<platform::Label, side_caption::Count> Label3;
  /// Why a view shows nothing, beside its run button.
  std::array<platform::QuietLine, quiet_line::Count> QuietLine;
};

}  // namespace forms
