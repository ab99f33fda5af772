#pragma once

#include <array>

#include "platform/controls/buttons.h"
#include "platform/controls/check_box.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/drawn_picture.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"

namespace forms {

/// `Combo5`: the ladders of full scales.
namespace full_scale {
inline constexpr std::size_t Current = 0;
inline constexpr std::size_t Voltage = 1;
inline constexpr std::size_t Count = 2;
}  // namespace full_scale

/// The controls of the Phasor view.
struct PhasorControls {
  PhasorControls();

  platform::GroupBox Frame2;
  platform::GroupBox Frame3;
  platform::CWButton CWButton2;
  platform::DrawnPicture phasordiagram;
  platform::Grid<9, 3> Grid1;
  platform::Label Label17;
  std::array<platform::ComboBox, full_scale::Count> Combo5;
  /// The captions beside `Combo5`.
  std::array<platform::Label, full_scale::Count> ScaleCaptions;
  /// Full scales are chosen automatically.
  platform::CheckBox Check6;
};

}  // namespace forms
