#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "support/capture_bench.h"

namespace support {

/// The acquisition core with its watchdog. The journal tells, in order, what happens to the
/// capture, the timers and the run buttons, and what is asked of the folders above.
class WatchdogBench : public CaptureBench, public packetroutines::TabConsumer {
 public:
  WatchdogBench() {
    Core.Upper.Tabs = *this;
    ON_CALL(Report, UnloadIDlook).WillByDefault([this] { Called("unload IDlook"); });
    Watch(Main.Timer1.Enabled, "Timer1.Enabled");
    Watch(Main.Timer2.Enabled, "Timer2.Enabled");
    Watch(Main.Timer3.Enabled, "Timer3.Enabled");
    WatchButton(Main.CWButton1, "CWButton1");
    WatchButton(Main.CWButton2, "CWButton2");
    WatchButton(Main.CWButton3, "CWButton3");
    WatchButton(Main.CWButton4, "CWButton4");
    WatchButton(Main.Command2, "Command2");
    Journal.clear();
  }

  /// Starts capture in a mode, with the run buttons pressed; the journal begins anew.
  void Start(const std::string& mode) {
    for (platform::CWButton* button :
         {&Main.CWButton1, &Main.CWButton2, &Main.CWButton3, &Main.CWButton4, &Main.Command2}) {
      button->Value = true;
    }
    Run(mode);
    Journal.clear();
  }
  /// Lets `Timer2` fire, as after a block.
  void Restart() {
    Main.Timer2.Interval = 100;
    Main.Timer2.Enabled = true;
    Journal.clear();
    Elapse(std::chrono::milliseconds(100));
  }

  /// Raised by the tab controller and by the stream finder when they are called.
  std::optional<platform::Failure> ConsumerFailure;

  void TabChange() override { Called("tab change"); }

 private:
  void WatchButton(platform::CWButton& button, const std::string& name) {
    Watch(button.Value, name + ".Value");
    Watch(button.Enabled, name + ".Enabled");
  }
  void Called(const char* line) {
    Journal.emplace_back(line);
    if (ConsumerFailure) throw platform::Failure(*ConsumerFailure);
  }
};

}  // namespace support
