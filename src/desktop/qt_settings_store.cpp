#include "desktop/qt_settings_store.h"

#include <QDir>
#include <iostream>

#include "desktop/text.h"

namespace desktop {

namespace {

QString PathOf(const std::string& section, const std::string& key) {
  return ToQt(section) + QLatin1Char('/') + ToQt(key);
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
  const QVariant value = FileOf(application).value(PathOf(section, key));
  if (!value.isValid()) return fallback;
  // A text with a comma that somebody wrote into the file without quotes comes back as a list.
  if (value.typeId() == QMetaType::QStringList) return FromQt(value.toStringList().join(u','));
  return FromQt(value.toString());
}

void QtSettingsStore::Set(const std::string& application, const std::string& section,
                          const std::string& key, const std::string& text) {
  FileOf(application).setValue(PathOf(section, key), ToQt(text));
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

QStringList QtSettingsStore::Write() {
  writing_.stop();
  changed_ = false;
  QStringList unwritten;
  for (const auto& [application, file] : files_) {
    file->sync();
    if (file->status() != QSettings::NoError) unwritten << file->fileName();
  }
  return unwritten;
}

void QtSettingsStore::Sync() {
  for (const QString& file : Write()) Report(file);
}

void QtSettingsStore::SyncQuietly() {
  for (const QString& file : Write()) {
    std::cerr << "The settings can't be saved: " << FromQt(QDir::toNativeSeparators(file))
              << std::endl;
  }
}

void QtSettingsStore::Report(const QString& fileName) {
  if (reported_) return;
  reported_ = true;
  dialogs_.Show({"Attention",
                 "The settings can't be saved!" + std::string(platform::Crlf) + platform::Crlf +
                     FromQt(QDir::toNativeSeparators(fileName)) + platform::Crlf + platform::Crlf +
                     "They hold until the program ends. Please check the rights and the free space "
                     "of this file's folder.",
                 platform::Icon::Exclamation});
}

}  // namespace desktop
