#pragma once

#include <gmock/gmock.h>

#include "config/stored_settings.h"
#include "shell/tab_controller.h"
#include "support/capture_bench.h"
#include "support/scene.h"

namespace shell_tests {

/// The program after its start, on the information page.
class TabScene : public ::testing::Test {
 protected:
  TabScene() {
    scene.Start();
    scene.Select(forms::tab::Info);
  }

  support::Scene scene;
  forms::Main& main = scene.Main;
};

/// The tab controller alone, with the views that other folders build played by the test.
class TabBench : public ::testing::Test, private formroutines::TabViews {
 protected:
  TabBench() { bench.Settings.StoragePath = "c:\\StoredData"; }

  support::CaptureBench bench;
  forms::Main& main = bench.Main;
  /// What the views do when they are asked.
  std::function<void()> AtFileFormat;
  std::function<void()> AtReportLayout;

 private:
  void ShowFileFormat() override {
    if (AtFileFormat) AtFileFormat();
  }
  void ReportLayout() override {
    if (AtReportLayout) AtReportLayout();
  }

  subroutines::StoredSettings file_{bench.Store, bench.Numbers, bench.Settings};

 protected:
  formroutines::TabController tabs{bench.Main,  bench.Settings,    bench.Present,  file_,
                                   bench.State, bench.Acquisition, bench.Services, bench.Files,
                                   *this,       bench.Timers};
};

}  // namespace shell_tests
