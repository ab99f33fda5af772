#pragma once

#include <array>

#include "platform/controls/buttons.h"
#include "platform/controls/check_box.h"
#include "platform/controls/cw_graph.h"
#include "platform/controls/label.h"
#include "platform/controls/option_button.h"
#include "platform/stream_format.h"

namespace forms {

/// `sevOption1`: what the mouse does on the graph.
namespace graph_mode {
inline constexpr std::size_t Pan = 0;
inline constexpr std::size_t Zoom = 1;
inline constexpr std::size_t Autoscale = 2;
inline constexpr std::size_t Count = 3;
}  // namespace graph_mode

/// The controls of the Waveforms view.
struct WaveformsControls {
  WaveformsControls();

  platform::GroupBox Frame1;
  platform::CWButton CWButton1;
  platform::CommandButton Command1;
  platform::CWGraph CWGraph1;
  std::array<platform::CheckBox, platform::channels::Count> Check2;
  /// Headings of the graph modes and of the station choice.
  platform::Label ModesHeading;
  platform::Label StationHeading;
  std::array<platform::OptionButton, graph_mode::Count> sevOption1;
};

}  // namespace forms
