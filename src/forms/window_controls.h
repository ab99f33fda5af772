#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/controls/buttons.h"
#include "platform/controls/label.h"
#include "platform/controls/status_bar.h"
#include "platform/controls/tab_strip.h"
#include "platform/controls/timer.h"
#include "platform/controls/window.h"

namespace forms {

/// The numbers of the tabs.
namespace tab {
inline constexpr std::int16_t Info = 1;
inline constexpr std::int16_t Values = 2;
inline constexpr std::int16_t Phasor = 3;
inline constexpr std::int16_t Waveforms = 4;
inline constexpr std::int16_t Recorder = 5;
inline constexpr std::int16_t Report = 6;
inline constexpr std::int16_t Setup = 7;
/// Ends the program.
inline constexpr std::int16_t Exit = 8;
}  // namespace tab

/// The panels of `StatusBar1`.
namespace status_panel {
inline constexpr std::size_t Adapter = 0;
inline constexpr std::size_t Printer = 1;
inline constexpr std::size_t Samples = 2;
inline constexpr std::size_t Errors = 3;
}  // namespace status_panel

/// The window as a whole, and what has no view of its own.
struct WindowControls {
  WindowControls();

  platform::Window Window;
  platform::TabStrip TabStrip1;
  platform::StatusBar StatusBar1;

  platform::PictureBox Picture2;
  platform::PictureBox Picture3;
  platform::PictureBox Picture5;
  platform::PictureBox Picture6;
  /// A leftover that nothing shows.
  platform::CommandButton Command8;

 private:
  void DescribeTabs();
  void DescribeStatusBar();
};

/// The timers of the burst cycle.
struct TimerControls {
  explicit TimerControls(platform::TimerCount& timers)
      : Timer1(timers), Timer2(timers), Timer3(timers) {}

  /// The no-data watchdog.
  platform::Timer Timer1;
  /// Restarts capture after a block.
  platform::Timer Timer2;
  /// Gives the run buttons back.
  platform::Timer Timer3;
};

}  // namespace forms
