#pragma once

#include <cstdint>

#include "base/trap.h"
#include "capture/modes.h"

namespace packetroutines {

/// What ends the runs of all views from outside.
enum class Leaving { Tab, Program };

/// What stands behind a tab of the window. The program keeps a list of its views and knows no more
/// of them.
class View {
 public:
  virtual ~View() = default;
  /// The tab that shows it.
  virtual std::int16_t Tab() const = 0;
  /// What its run button runs; null where it has none.
  const Mode* RunMode() const {
    for (const Mode& mode : Modes) {
      if (mode.Tab == Tab() && mode.RunButton != nullptr) return &mode;
    }
    return nullptr;
  }
  /// Brings up its first state, once, before anything is shown.
  virtual void Load() = 0;
  /// The runs are about to be ended: takes what begins one from the screen.
  virtual void Withdraw() {}
  /// Capture was stopped, and whatever the view was running is over.
  virtual void Interrupt(Leaving /*what*/) {}
  /// The tab was entered: brings its controls to the screen. `run` runs steps under the trap of a
  /// tab change.
  virtual void Show(const platform::Routine& run) = 0;
  /// A tab is about to be entered: takes its controls from the screen.
  virtual void Hide() = 0;
  /// The window has another size.
  virtual void Resized() {}
  /// A run is being begun or ended; in the pumps of that capture rests, and the run goes on.
  virtual bool InHand() const { return false; }
};

}  // namespace packetroutines
