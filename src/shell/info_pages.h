#pragma once

#include "base/number_text.h"
#include "base/program.h"
#include "capture/view.h"
#include "config/configuration.h"
#include "forms/information_controls.h"
#include "forms/revision_history.h"
#include "forms/setup_controls.h"
#include "forms/shared_controls.h"
#include "forms/window_controls.h"
#include "platform/services/system_services.h"
#include "shell/platform.h"

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
class InfoPages : public packetroutines::View, private subroutines::StatusUser {
 public:
  InfoPages(const InfoParts& parts, forms::Revisionhistory& history, config::Configuration& config,
            const Platform& platform);

  std::int16_t Tab() const override { return forms::tab::Info; }
  void Load() override {}
  void Show(const platform::Routine&) override { parts_.Page.Picture4.Visible = true; }
  void Hide() override { parts_.Page.Picture4.Visible = false; }

  /// The titles of the window and of the Setup view.
  void ShowProgramNames();
  /// Empties the panel of the status bar that counts errors.
  void EmptyErrorCount();
  /// Fills the information page, once at start.
  void InfoPage();

 private:
  /// Writes the first three panels of the status bar.
  void StatusUpdate() override;
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
