#pragma once

#include "config/configuration.h"
#include "forms/windows.h"
#include "measure/live_views.h"
#include "recorder/recorder.h"
#include "report/reports.h"
#include "shell/info_pages.h"
#include "shell/platform.h"
#include "shell/setup_page.h"
#include "shell/tab_controller.h"

namespace formroutines {

/// The pages of the shell's own, and the list of all views.
class Pages {
 public:
  Pages(forms::Windows& windows, config::Configuration& config, subroutines::LiveViews& live,
        subroutines::Recorder& recorder, subroutines::Reports& reports, const Platform& platform)
      : Info({.Page = windows.Main,
              .Window = windows.Main,
              .Shared = windows.Main,
              .Setup = windows.Main},
             windows.Revisionhistory, config, platform),
        Setup(config.View, windows.Main),
        All{&live.Scope, &Setup, &recorder, &live.Values, &live.Phases, &reports.View, &Info} {}

  InfoPages Info;
  SetupPage Setup;
  /// In the order in which they are loaded.
  Views All;
};

}  // namespace formroutines
