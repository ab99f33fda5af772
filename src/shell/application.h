#pragma once

#include "capture/acquisition.h"
#include "config/configuration.h"
#include "forms/windows.h"
#include "measure/live_views.h"
#include "recorder/recorder.h"
#include "report/reports.h"
#include "shell/dropped_files.h"
#include "shell/form_layout.h"
#include "shell/pages.h"
#include "shell/platform.h"
#include "shell/recording_question.h"
#include "shell/tab_controller.h"

namespace formroutines {

/// The whole program below the window: the owners of the folders, from the bottom up.
class Application {
 public:
  explicit Application(const Platform& platform);

  /// The load of the main window: from the settings to the first view. A failure that no trap took
  /// leaves through here.
  void Load();
  /// The end that cannot wait for a run button, such as the end of the user's session: capture is
  /// stopped, and the program ends.
  void EndSession();
  /// Finishes the files that are still open; the last that is done before the process is left.
  void CloseFiles() { Recorder.CloseFiles(); }

 private:
  void CheckScreen();
  void FormSetup();
  void ListPrinters();
  void LoadViews();

  Platform platform_;

 public:
  forms::Windows Windows;
  config::Configuration Config;
  packetroutines::Acquisition Acquisition;
  subroutines::LiveViews LiveViews;
  subroutines::Recorder Recorder;
  subroutines::Reports Reports;
  formroutines::Pages Pages;
  RecordingQuestion Question;
  DroppedFiles Dropped;
  TabController Tabs;
  FormLayout Layout;
};

}  // namespace formroutines
