#pragma once

#include <array>
#include <optional>

#include "platform/controls/buttons.h"
#include "platform/controls/check_box.h"
#include "platform/controls/label.h"
#include "platform/stream_format.h"

namespace forms {

/// `Label12`: the marks of quality bits, which stay empty, and the DC labels of the eight channels.
namespace small_label {
inline constexpr std::size_t Qualities = 2;
inline constexpr std::size_t FirstDc = 8;
inline constexpr std::size_t Count = 16;
}  // namespace small_label

/// The controls of the Values view: channel i is `Label5[i]`, its caption `Label6[i]`.
struct ValuesControls {
  ValuesControls();

  platform::CWButton CWButton4;
  /// Real-time value.
  platform::CheckBox Check5;
  std::array<platform::Label, platform::channels::Count> Label5;
  std::array<platform::Label, platform::channels::Count> Label6;
  std::array<platform::Label, small_label::Count> Label12;
  /// Heading of the station choice.
  platform::Label Label16;
  /// The one reading that lives in real-time mode, from 0; nothing where all of them do.
  platform::Property<std::optional<std::size_t>> LiveReading;
};

}  // namespace forms
