#pragma once

#include <QSettings>
#include <QStringList>
#include <QTimer>
#include <map>
#include <memory>
#include <string>

#include "platform/dialogs.h"
#include "platform/settings_store.h"

namespace desktop {

/// The settings in the user's own settings file of the platform. Changes are written as soon as the
/// window is idle; a file that cannot be written is reported once, and the values stay in memory.
class QtSettingsStore : public platform::SettingsStore {
 public:
  explicit QtSettingsStore(platform::Dialogs& dialogs);

  std::string Get(const std::string& application, const std::string& section,
                  const std::string& key, const std::string& fallback) const override;
  void Set(const std::string& application, const std::string& section, const std::string& key,
           const std::string& text) override;
  /// Writes what is not written yet. It shows no box: it is for the way out, where a box would let
  /// events into a program that is ending, or keep one waiting that nobody sits at.
  void SyncQuietly();
  /// Lets the report of a file that cannot be written wait until the release: it would open on top
  /// of the box that stands. Holds nest.
  void Hold();
  void Release();

 private:
  QSettings& FileOf(const std::string& application) const;
  void Sync();
  /// Writes what is not written yet; gives the names of the files that could not be written.
  QStringList Write();
  void Report(const QString& fileName);

  platform::Dialogs& dialogs_;
  mutable std::map<std::string, std::unique_ptr<QSettings>> files_;
  QTimer writing_;
  int holds_ = 0;
  /// Something was set that is not written yet.
  bool changed_ = false;
  bool reported_ = false;
};

}  // namespace desktop
