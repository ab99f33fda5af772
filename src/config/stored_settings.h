#pragma once

#include <string>

#include "base/failure.h"
#include "base/number_text.h"
#include "base/plug.h"
#include "config/settings.h"
#include "platform/services/settings_store.h"

namespace config {

inline constexpr const char* Application = "Vornik";
inline constexpr const char* Section = "INI";
inline constexpr const char* ActiveTabKey = "MainActiveTab";
/// The data path that the store holds for a user who chose none; off Windows it stands for the
/// platform's own.
inline constexpr const char* DefaultStoragePath = "c:\\StoredData";

}  // namespace config

namespace subroutines {

/// Who shows what the settings say.
class StatusUser {
 public:
  virtual ~StatusUser() = default;
  virtual void StatusUpdate() = 0;
};

/// Reads and writes the settings, each key in its order, as locale text.
class StoredSettings {
 public:
  StoredSettings(platform::SettingsStore& store, const platform::NumberText& numbers,
                 config::Settings& settings);

  /// Failure 13 or 6 where a stored text does not convert to its type, with a text that names it.
  void LoadSettings();
  /// Writes every key, then refreshes the status bar.
  void SaveSettings();
  /// Refreshes the status bar, where what it shows is not stored.
  void ShowStatus();
  /// Writes the tab in use alone.
  void SaveActiveTab();
  /// A failure at the start that comes from the settings, so that it would come at every start:
  /// with its cause, and with the place where a user can mend them.
  platform::Failure WithWayOut(const platform::Failure& failure, const std::string& cause) const;
  platform::Plug<StatusUser> Status;

 private:
  platform::SettingsStore& store_;
  const platform::NumberText& numbers_;
  config::Settings& settings_;
};

}  // namespace subroutines
