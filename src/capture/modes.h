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

/// What starts the next burst of a mode by itself, after the user's delay.
enum class Restarts {
  Never,
  /// The events that came in during the delay are handled first.
  BehindPump,
  /// Nothing comes between the delay and the start.
  AtOnce
};

/// All that belongs to a mode of the acquisition.
struct Mode {
  std::string_view Name;
  ModeKind Kind;
  bool RunFields::*Flag;
  /// How long a usable frame is awaited, in ms.
  std::int32_t TimeOut;
  /// What the no-data dialog says in front of its own words.
  std::string_view NoData;
  Restarts Restart;
  /// The tab that the mode runs on.
  std::int16_t Tab;
  /// The button that starts it there; none for the stream finder, which has a window of its own.
  platform::CWButton& (*RunButton)(const forms::RunButtons& buttons);
  /// The line that tells what it waits for; `NoLine` where it has a dialog alone.
  std::size_t QuietLine;
  /// A change of the tab switches its button off, on whatever tab it stands.
  bool OffWithTab;
};

inline constexpr std::size_t NoLine = forms::quiet_line::Count;

inline constexpr auto Modes = std::to_array<Mode>({
    {.Name = "Report",
     .Kind = ModeKind::SingleFrame,
     .Flag = &RunFields::ReportRequested,
     .TimeOut = 4000,
     .NoData = "Building a report for required data isn't possible!",
     .Restart = Restarts::Never,
     .Tab = forms::tab::Report,
     .RunButton = [](const forms::RunButtons& buttons) -> platform::CWButton& {
       return buttons.Command2;
     },
     .QuietLine = NoLine,
     .OffWithTab = false},
    {.Name = "LookingForScope",
     .Kind = ModeKind::LiveView,
     .Flag = &RunFields::LookingForScope,
     .TimeOut = 2000,
     .NoData = "",
     .Restart = Restarts::AtOnce,
     .Tab = forms::tab::Waveforms,
     .RunButton = [](const forms::RunButtons& buttons) -> platform::CWButton& {
       return buttons.CWButton1;
     },
     .QuietLine = forms::quiet_line::Waveforms,
     .OffWithTab = true},
    {.Name = "LookingForValues",
     .Kind = ModeKind::LiveView,
     .Flag = &RunFields::LookingForValues,
     .TimeOut = 2000,
     .NoData = "",
     .Restart = Restarts::BehindPump,
     .Tab = forms::tab::Values,
     .RunButton = [](const forms::RunButtons& buttons) -> platform::CWButton& {
       return buttons.CWButton4;
     },
     .QuietLine = forms::quiet_line::Values,
     .OffWithTab = true},
    {.Name = "LookingForPhases",
     .Kind = ModeKind::LiveView,
     .Flag = &RunFields::LookingForPhases,
     .TimeOut = 2000,
     .NoData = "",
     .Restart = Restarts::BehindPump,
     .Tab = forms::tab::Phasor,
     .RunButton = [](const forms::RunButtons& buttons) -> platform::CWButton& {
       return buttons.CWButton2;
     },
     .QuietLine = forms::quiet_line::Phasor,
     .OffWithTab = false},
    {.Name = "LookingForRecording",
     .Kind = ModeKind::Recording,
     .Flag = &RunFields::LookingForRecording,
     .TimeOut = 2000,
     .NoData = "Recording isn't possible!",
     .Restart = Restarts::Never,
     .Tab = forms::tab::Recorder,
     .RunButton = [](const forms::RunButtons& buttons) -> platform::CWButton& {
       return buttons.CWButton3;
     },
     .QuietLine = forms::quiet_line::Recorder,
     .OffWithTab = false},
    {.Name = "LookingForID",
     .Kind = ModeKind::SingleFrame,
     .Flag = &RunFields::LookingForID,
     .TimeOut = 2000,
     .NoData = "",
     .Restart = Restarts::BehindPump,
     .Tab = forms::tab::Setup,
     .RunButton = nullptr,
     .QuietLine = NoLine,
     .OffWithTab = false},
});

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
  /// The mode itself; none where there is no mode of that name.
  const Mode* Find() const { return FindMode(text_); }

 private:
  explicit constexpr ModeName(std::string_view text) : text_(text) {}

  std::string_view text_;
};

/// True where `wanted(mode)` holds for a mode whose flag is set.
template <typename Wanted>
bool AnyModeSet(const RunFields& state, Wanted wanted) {
  for (const Mode& mode : Modes) {
    if (state.*mode.Flag && wanted(mode)) return true;
  }
  return false;
}

constexpr bool IsLiveView(const Mode& mode) {
  return mode.Kind == ModeKind::LiveView;
}

/// The mode turns frames into rows of values.
inline bool TakesSamples(const Mode& mode) {
  return mode.Kind != ModeKind::SingleFrame;
}

/// The modes that are served one after the other, in orders that differ by design. One that is
/// forgotten in its order does not compile.
template <std::size_t N>
constexpr bool HoldsAll(const std::array<ModeName, N>& order, bool (*wanted)(const Mode&)) {
  std::size_t count = 0;
  for (const Mode& mode : Modes) {
    if (!wanted(mode)) continue;
    ++count;
    bool held = false;
    for (const ModeName& name : order) held = held || name.Text() == mode.Name;
    if (!held) return false;
  }
  return count == N;
}

/// The live views whose buttons are switched off together.
inline constexpr std::array<ModeName, 3> SwitchOffOrder = {"LookingForValues", "LookingForScope",
                                                           "LookingForPhases"};
static_assert(HoldsAll(SwitchOffOrder, IsLiveView));
/// The live views whose buttons come back together.
inline constexpr std::array<ModeName, 3> ReleaseOrder = {"LookingForPhases", "LookingForValues",
                                                         "LookingForScope"};
static_assert(HoldsAll(ReleaseOrder, IsLiveView));
/// The modes that are restarted.
inline constexpr std::array<ModeName, 4> RestartOrder = {"LookingForValues", "LookingForPhases",
                                                         "LookingForScope", "LookingForID"};
static_assert(HoldsAll(RestartOrder,
                       [](const Mode& mode) { return mode.Restart != Restarts::Never; }));

}  // namespace packetroutines
