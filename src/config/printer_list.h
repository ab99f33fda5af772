#pragma once

#include "config/settings.h"
#include "config/settings_file.h"
#include "forms/main_form.h"
#include "platform/dialogs.h"
#include "platform/program.h"
#include "platform/system_services.h"

namespace subroutines {

/// The list of printers on the Setup view and the choice of the program's printer.
class PrinterChoices {
 public:
  PrinterChoices(forms::Main& main, config::Settings& settings, SettingsFile& file,
                 platform::Printers& printers, platform::Dialogs& dialogs,
                 platform::Program& program);

  /// Fills the list. The current printer is marked by "*" behind its name and selected, each where
  /// it is asked for.
  void PrinterList(bool markDefault, bool selectDefault);

 private:
  void Fill(const std::string& current, bool markDefault, bool selectDefault);
  void Combo2_Click();

  forms::Main& main_;
  config::Settings& settings_;
  SettingsFile& file_;
  platform::Printers& printers_;
  platform::Dialogs& dialogs_;
  platform::Program& program_;
};

}  // namespace subroutines
