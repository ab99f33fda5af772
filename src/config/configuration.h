#pragma once

#include "base/number_text.h"
#include "base/program.h"
#include "config/adapter_choice.h"
#include "config/printer_list.h"
#include "config/settings.h"
#include "config/setup_view.h"
#include "config/station_choice.h"
#include "config/stored_settings.h"
#include "forms/main_form.h"
#include "platform/services/dialogs.h"
#include "platform/services/file_system.h"
#include "platform/services/settings_store.h"
#include "platform/services/system_services.h"

namespace config {

/// What the configuration uses of the platform.
struct ConfigurationServices {
  platform::SettingsStore& Store;
  const platform::NumberText& Numbers;
  platform::FolderDialog& Folders;
  platform::Printers& Printers;
  platform::Dialogs& Dialogs;
  platform::Program& Program;
};

/// The settings, stored and of the present run, and the Setup view that changes them.
class Configuration {
 public:
  Configuration(forms::Main& main, const ConfigurationServices& services)
      : Stored(services.Store, services.Numbers, Settings),
        View({.Setup = main, .Shared = main, .Scope = main}, Settings, Present, Stored,
             services.Numbers, services.Folders),
        Adapters(main, Settings, Present, Stored),
        Printers(main, main, Settings, Stored, services.Printers, services.Dialogs,
                 services.Program),
        Stations(main, main, Present) {}

  /// Makes the folder for data, where the user has chosen no other one.
  void PrepareStorage(platform::FileSystem& files) {
    if (Settings.StoragePath == DefaultStoragePath) Settings.StoragePath = files.DefaultFolder();
    // Any other folder is the user's own: one that is missing may lie on a disk that is not there.
    if (Settings.StoragePath == files.DefaultFolder()) files.MakeFolder(Settings.StoragePath);
  }

  config::Settings Settings;
  RunSettings Present;
  subroutines::StoredSettings Stored;
  subroutines::SetupView View;
  subroutines::AdapterChoice Adapters;
  subroutines::PrinterChoices Printers;
  subroutines::StationChoice Stations;
};

}  // namespace config
