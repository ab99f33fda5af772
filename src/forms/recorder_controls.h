#pragma once

#include <array>

#include "platform/controls/buttons.h"
#include "platform/controls/cw_graph.h"
#include "platform/controls/label.h"
#include "platform/controls/option_button.h"
#include "platform/controls/progress_bar.h"
#include "platform/controls/quiet_line.h"
#include "platform/controls/text_box.h"

namespace forms {

/// `Option2`: the file formats.
namespace record_format {
inline constexpr std::size_t Text = 0;
inline constexpr std::size_t Worksheet = 1;
inline constexpr std::size_t Comtrade = 2;
inline constexpr std::size_t Count = 3;
}  // namespace record_format

/// `Label10`: the lines that tell what is recorded and where to.
namespace record_line {
inline constexpr std::size_t Heading = 0;
inline constexpr std::size_t FirstPath = 1;
inline constexpr std::size_t ProgressHeading = 2;
inline constexpr std::size_t Progress = 3;
inline constexpr std::size_t SecondPath = 4;
inline constexpr std::size_t Count = 5;
}  // namespace record_line

/// `Text3`: the trigger settings.
namespace trigger_field {
inline constexpr std::size_t Current = 2;
inline constexpr std::size_t Voltage = 3;
inline constexpr std::size_t Before = 4;
inline constexpr std::size_t After = 5;
inline constexpr std::size_t Pause = 8;
inline constexpr std::size_t Count = 9;
}  // namespace trigger_field

/// `Option1`: when a recording is triggered.
namespace trigger_kind {
inline constexpr std::size_t Single = 0;
inline constexpr std::size_t Continuous = 1;
inline constexpr std::size_t Immediate = 2;
inline constexpr std::size_t Count = 3;
}  // namespace trigger_kind

/// The controls of the Recorder view.
struct RecorderControls {
  RecorderControls();

  platform::CWButton CWButton3;
  std::array<platform::OptionButton, record_format::Count> Option2;
  std::array<platform::Label, record_line::Count> Label10;
  platform::CWGraph CWGraph2;
  platform::CommandButton Command9;
  /// Beside it: opens the folder that the recordings are stored in.
  platform::CommandButton OpenFolder;
  /// In the place of the button as long as it is hidden: what STOP waits for.
  platform::QuietLine StopWaits;
  /// Below the progress text, while a finished recording is read back.
  platform::ProgressBar ProgressBar1;
  std::array<platform::TextBox, trigger_field::Count> Text3;
  platform::Shape Shape9;
  platform::GroupBox Frame4;
  std::array<platform::OptionButton, trigger_kind::Count> Option1;
  /// What of each stream is on disk, beside the progress.
  std::array<platform::Label, 2> OnDisk;
  /// What the disk of the data folder still takes, and how long that suffices.
  platform::Label Room;
  /// Since when, and why, a recording that goes on stores nothing.
  platform::QuietLine NotStored;
  /// Checks a recording that has no log; behind that it opens what was written.
  platform::CommandButton CheckRecording;
  /// Which one that is, and what was found.
  platform::QuietLine CheckLine;
};

}  // namespace forms
