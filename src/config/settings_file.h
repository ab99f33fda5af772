#pragma once

#include <functional>

#include "config/settings.h"
#include "platform/number_text.h"
#include "platform/settings_store.h"

namespace config {

inline constexpr const char* Application = "Vornik";
inline constexpr const char* Section = "INI";
inline constexpr const char* ActiveTabKey = "MainActiveTab";

}  // namespace config

namespace subroutines {

/// Reads and writes the settings, each key in its order, as locale text.
class SettingsFile {
 public:
  SettingsFile(platform::SettingsStore& store, const platform::NumberText& numbers,
               config::Settings& settings);

  /// Failure 13 or 6 where a stored text does not convert to its type.
  void LoadSettings();
  /// Writes every key, then refreshes the status bar.
  void SaveSettings();
  /// Writes the tab in use alone.
  void SaveActiveTab();
  /// Refreshes the status bar.
  std::function<void()> StatusUpdate;

 private:
  platform::SettingsStore& store_;
  const platform::NumberText& numbers_;
  config::Settings& settings_;
};

}  // namespace subroutines
