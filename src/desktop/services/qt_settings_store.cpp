#include "desktop/services/qt_settings_store.h"

#include <QDir>
#include <iostream>
#include <utility>

#include "desktop/look/text.h"

namespace desktop {

namespace {

QString PathOf(const std::string& section, const std::string& key) {
  return ToQt(section) + QLatin1Char('/') + ToQt(key);
}

/// Writes the texts of a file that are not written yet; false where this fails.
bool WriteFile(const QString& fileName) {
  // An object keeps its first error for good, but the objects of one file share its texts: so each
  // attempt has an object of its own. A first attempt that reads a damaged file fails by that, even
  // where it writes well; the second one does not read again.
  for (int attempt = 0; attempt < 2; ++attempt) {
    QSettings file(fileName, QSettings::NativeFormat);
    file.sync();
    if (file.status() == QSettings::NoError) return true;
  }
  return false;
}

}  // namespace

QtSettingsStore::QtSettingsStore(platform::Dialogs& dialogs) : dialogs_(dialogs) {
  writing_.setSingleShot(true);
  QObject::connect(&writing_, &QTimer::timeout, &writing_, [this] { Sync(); });
}

QSettings& QtSettingsStore::FileOf(const std::string& application) const {
  std::unique_ptr<QSettings>& file = files_[application];
  if (!file) {
    const QString name = ToQt(application);
    file = std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, name, name);
    file->setFallbacksEnabled(false);
  }
  return *file;
}

std::string QtSettingsStore::Get(const std::string& application, const std::string& section,
                                 const std::string& key, const std::string& fallback) const {
  const QString path = PathOf(section, key);
  const QVariant value = FileOf(application).value(path);
  if (!value.isValid()) return fallback;
  // A text with a comma that somebody wrote into the file without quotes comes back as a list.
  const bool list = value.typeId() == QMetaType::QStringList;
  std::string text = FromQt(list ? value.toStringList().join(u',') : value.toString());
  known_[application][path] = text;
  return text;
}

void QtSettingsStore::Set(const std::string& application, const std::string& section,
                          const std::string& key, const std::string& text) {
  const QString path = PathOf(section, key);
  QSettings& file = FileOf(application);
  std::map<QString, std::string>& texts = known_[application];
  const auto known = texts.find(path);
  const bool unchanged = known != texts.end() && known->second == text;
  // A key that went with its file comes back with all the others.
  if (unchanged && file.contains(path)) return;
  file.setValue(path, ToQt(text));
  texts[path] = text;
  changed_ = true;
  // Not at once: one change writes all keys, and a box in the midst of them would let events in.
  if (holds_ == 0) writing_.start(0);
}

void QtSettingsStore::Hold() {
  ++holds_;
  writing_.stop();
}

void QtSettingsStore::Release() {
  if (--holds_ == 0 && changed_) writing_.start(0);
}

std::string QtSettingsStore::Place(const std::string& application) const {
  return FromQt(QDir::toNativeSeparators(FileOf(application).fileName()));
}

QStringList QtSettingsStore::Write() {
  writing_.stop();
  changed_ = false;
  QStringList unwritten;
  for (const auto& [application, file] : files_) {
    if (!WriteFile(file->fileName())) unwritten << file->fileName();
  }
  return unwritten;
}

void QtSettingsStore::Sync() {
  const QStringList before = std::exchange(unwritten_, Write());
  for (const QString& file : unwritten_) {
    if (!before.contains(file)) Report(file);
  }
}

void QtSettingsStore::SyncQuietly() {
  for (const QString& file : Write()) {
    std::cerr << "The settings can't be saved: " << FromQt(QDir::toNativeSeparators(file))
              << std::endl;
  }
}

void QtSettingsStore::Report(const QString& fileName) {
  dialogs_.Show({"Attention",
                 "The settings can't be saved!" + std::string(platform::Crlf) + platform::Crlf +
                     FromQt(QDir::toNativeSeparators(fileName)) + platform::Crlf + platform::Crlf +
                     "They hold until the program ends. Please check the rights and the free space "
                     "of this file's folder.",
                 platform::Icon::Exclamation});
}

}  // namespace desktop
