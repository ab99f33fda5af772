#pragma once

#include "base/number_text.h"
#include "base/program.h"
#include "config/settings.h"
#include "forms/information_controls.h"
#include "forms/revision_history.h"
#include "forms/setup_controls.h"
#include "forms/shared_controls.h"
#include "forms/window_controls.h"
#include "platform/services/system_services.h"

namespace formroutines {

/// Where the static face shows: the page itself, the tab strip and the status bar, the support
/// address, and the list whose choice the status bar names.
struct InfoParts {
  forms::InformationControls& Page;
  forms::WindowControls& Window;
  forms::SharedControls& Shared;
  forms::SetupControls& Setup;
};

/// The static face of the program: the information page, the status bar, the revision history
/// window and the links.
class InfoPages {
 public:
  InfoPages(const InfoParts& parts, forms::Revisionhistory& history,
            const config::Settings& settings, const config::RunSettings& present,
            const platform::NumberText& numbers, const platform::Printers& printers,
            platform::ShellLinks& links, platform::Program& program);

  /// Fills the information page, once at start.
  /// The titles of the window and of the Setup view.
  void ShowProgramNames();
  /// Empties the panel of the status bar that counts errors.
  void EmptyErrorCount();
  void InfoPage();
  /// Writes the first three panels of the status bar.
  void StatusUpdate();

 private:
  void OpenHistory();

  InfoParts parts_;
  forms::Revisionhistory& history_;
  const config::Settings& settings_;
  const config::RunSettings& present_;
  const platform::NumberText& numbers_;
  const platform::Printers& printers_;
  platform::ShellLinks& links_;
  platform::Program& program_;
};

}  // namespace formroutines
