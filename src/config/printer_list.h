#pragma once

#include "base/program.h"
#include "config/settings.h"
#include "config/stored_settings.h"
#include "forms/setup_controls.h"
#include "forms/waveforms_controls.h"
#include "platform/services/dialogs.h"
#include "platform/services/system_services.h"

namespace subroutines {

/// The list of printers on the Setup view and the choice of the program's printer.
class PrinterChoices {
 public:
  PrinterChoices(forms::SetupControls& setup, forms::WaveformsControls& scope,
                 config::Settings& settings, StoredSettings& stored, platform::Printers& printers,
                 platform::Dialogs& dialogs, platform::Program& program);

  /// Fills the list. The current printer is marked by "*" behind its name and selected, each where
  /// it is asked for.
  void PrinterList(bool markDefault, bool selectDefault);

  /// Makes the stored printer the program's own; one that is gone leaves the system's choice.
  void SelectStored();

 private:
  void Fill(const std::string& current, bool markDefault, bool selectDefault);
  void Combo2_Click();

  forms::SetupControls& setup_;
  forms::WaveformsControls& scope_;
  config::Settings& settings_;
  StoredSettings& stored_;
  platform::Printers& printers_;
  platform::Dialogs& dialogs_;
  platform::Program& program_;
};

}  // namespace subroutines
