#pragma once

#include <cmath>

#include "desktop/widgets/run_button.h"
#include "live/program/wire_scene.h"

namespace desktop {

/// A scene on the wire that measures on the Values view.
class ProgramOnTheWire : public WireScene {
 protected:
  /// Presses the run button of the Values view, which stops a run that is under way.
  void Run() {
    ASSERT_TRUE(WaitFor([this] { return Find<RunButton>("CWButton4").isEnabled(); }));
    Click("CWButton4");
  }
  double Number(int channel) { return Reading(channel).remove(QLatin1Char(',')).toDouble(); }
  bool WaitForNumber(int channel, double expected) {
    return WaitFor([&] { return std::abs(Number(channel) - expected) < 0.0001 * expected; });
  }
};

}  // namespace desktop
