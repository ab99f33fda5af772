#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "capture/acquisition_state.h"
#include "forms/run_buttons.h"
#include "forms/shared_controls.h"
#include "forms/window_controls.h"

namespace packetroutines {

/// What a mode of the acquisition is for.
enum class ModeKind {
  /// Shows one block after the other: each stops capture, and a timer starts the next burst.
  LiveView,
  /// Stores every frame until it is stopped.
  Recording,
  /// Takes a frame as a whole, without a look at its samples.
  SingleFrame
};

/// All that belongs to a mode of the acquisition.
struct Mode {
  std::string_view Name;
  ModeKind Kind;
  bool AcquisitionState::*Flag;
  /// How long a usable frame is awaited, in ms.
  std::int32_t TimeOut;
  /// The tab that the mode runs on.
  std::int16_t Tab;
  /// The button that starts it there; none for the stream finder, which has a window of its own.
  platform::CWButton& (*RunButton)(const forms::RunButtons& buttons);
  /// The line that tells what it waits for; `NoLine` where it has a dialog alone.
  std::size_t QuietLine;
};

inline constexpr std::size_t NoLine = forms::quiet_line::Count;

inline constexpr std::array<Mode, 6> Modes = {{
    {"Report", ModeKind::SingleFrame, &AcquisitionState::ReportRequested, 4000, forms::tab::Report,
     [](const forms::RunButtons& buttons) -> platform::CWButton& { return buttons.Command2; },
     NoLine},
    {"LookingForScope", ModeKind::LiveView, &AcquisitionState::LookingForScope, 2000,
     forms::tab::Waveforms,
     [](const forms::RunButtons& buttons) -> platform::CWButton& { return buttons.CWButton1; },
     forms::quiet_line::Waveforms},
    {"LookingForValues", ModeKind::LiveView, &AcquisitionState::LookingForValues, 2000,
     forms::tab::Values,
     [](const forms::RunButtons& buttons) -> platform::CWButton& { return buttons.CWButton4; },
     forms::quiet_line::Values},
    {"LookingForPhases", ModeKind::LiveView, &AcquisitionState::LookingForPhases, 2000,
     forms::tab::Phasor,
     [](const forms::RunButtons& buttons) -> platform::CWButton& { return buttons.CWButton2; },
     forms::quiet_line::Phasor},
    {"LookingForRecording", ModeKind::Recording, &AcquisitionState::LookingForRecording, 2000,
     forms::tab::Recorder,
     [](const forms::RunButtons& buttons) -> platform::CWButton& { return buttons.CWButton3; },
     forms::quiet_line::Recorder},
    {"LookingForID", ModeKind::SingleFrame, &AcquisitionState::LookingForID, 2000,
     forms::tab::Setup, nullptr, NoLine},
}};

/// The place of a mode in the table; its end where there is no mode of that name.
constexpr std::size_t PlaceOfMode(std::string_view name) {
  std::size_t place = 0;
  while (place < Modes.size() && Modes[place].Name != name) ++place;
  return place;
}

/// The mode of a name; none where there is no such mode.
inline const Mode* FindMode(std::string_view name) {
  const std::size_t place = PlaceOfMode(name);
  return place < Modes.size() ? &Modes[place] : nullptr;
}

/// The name of a mode. One that is written out in the code must be in the table, or it does not
/// compile.
class ModeName {
 public:
  consteval ModeName(const char* name) : text_(name) {
    if (PlaceOfMode(text_) == Modes.size()) throw "there is no such mode";
  }
  /// A text that may be no mode's name.
  static ModeName Any(std::string_view text) { return ModeName(text); }

  constexpr std::string_view Text() const { return text_; }

 private:
  explicit constexpr ModeName(std::string_view text) : text_(text) {}

  std::string_view text_;
};

/// True where `wanted(mode)` holds for a mode whose flag is set.
template <typename Wanted>
bool AnyModeSet(const AcquisitionState& state, Wanted wanted) {
  for (const Mode& mode : Modes) {
    if (state.*mode.Flag && wanted(mode)) return true;
  }
  return false;
}

inline bool IsLiveView(const Mode& mode) {
  return mode.Kind == ModeKind::LiveView;
}

/// The mode turns frames into rows of values.
inline bool TakesSamples(const Mode& mode) {
  return mode.Kind != ModeKind::SingleFrame;
}

/// Clears the flags of all modes.
inline void ClearModes(AcquisitionState& state) {
  for (const Mode& mode : Modes) state.*mode.Flag = false;
}

}  // namespace packetroutines
