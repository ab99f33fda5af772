#pragma once

#include <QSettings>
#include <QStringList>
#include <QTimer>
#include <map>
#include <memory>
#include <string>

#include "platform/loop/holdable.h"
#include "platform/services/dialogs.h"
#include "platform/services/settings_store.h"

namespace desktop {

/// The settings in the user's own settings file of the platform. A text that this program changed
/// is written as soon as the window is idle, and only that: so two programs on one file keep each
/// other's changes. While a file cannot be written, this is told once, and the texts stay in
/// memory.
class QtSettingsStore : public platform::SettingsStore, public platform::Holdable {
 public:
  explicit QtSettingsStore(platform::Dialogs& dialogs);

  std::string Get(const std::string& application, const std::string& section,
                  const std::string& key, const std::string& fallback) const override;
  void Set(const std::string& application, const std::string& section, const std::string& key,
           const std::string& text) override;
  std::string Place(const std::string& application) const override;
  /// Writes what is not written yet. It shows no box: it is for the way out, where a box would let
  /// events into a program that is ending, or keep one waiting that nobody sits at.
  void SyncQuietly();
  /// Lets the report of a file that cannot be written wait until the release: it would open on top
  /// of the box that stands.
  void Hold() override;
  void Release() override;

 private:
  QSettings& FileOf(const std::string& application) const;
  void Sync();
  /// Writes what is not written yet; gives the names of the files that could not be written.
  QStringList Write();
  void Report(const QString& fileName);

  platform::Dialogs& dialogs_;
  mutable std::map<std::string, std::unique_ptr<QSettings>> files_;
  /// The texts by key as this program last read or wrote them.
  mutable std::map<std::string, std::map<QString, std::string>> known_;
  QTimer writing_;
  int holds_ = 0;
  /// Something was set that is not written yet.
  bool changed_ = false;
  /// The files that could not be written the last time.
  QStringList unwritten_;
};

}  // namespace desktop
