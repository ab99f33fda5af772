#include "desktop/services/qt_file_system.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "base/failure.h"
#include "desktop/look/text.h"
#include "desktop/services/stdio_files.h"

namespace desktop {

#ifdef Q_OS_WIN

std::string QtFileSystem::Separator() const {
  return "\\";
}

std::string QtFileSystem::DefaultFolder() const {
  return "c:\\StoredData";
}

QString QtFileSystem::Resolve(const std::string& path) {
  return ToQt(path);
}

#else

std::string QtFileSystem::Separator() const {
  return "/";
}

std::string QtFileSystem::DefaultFolder() const {
  return FromQt(QDir::home().filePath(QStringLiteral("StoredData")));
}

QString QtFileSystem::Resolve(const std::string& path) {
  QString place = ToQt(path);
  const bool drive = place.size() >= 2 && place[0].isLetter() && place[1] == u':';
  // A name of this system may hold a backslash, so a path that is one of its own stays as it is.
  if (place.startsWith(u'/')) return place;
  place.replace(u'\\', u'/');
  if (!drive) return place;
  place.remove(0, 2);
  while (place.startsWith(u'/')) place.remove(0, 1);
  return place.isEmpty() ? QDir::homePath() : QDir::home().filePath(place);
}

#endif

bool QtFileSystem::DirectoryExists(const std::string& path) const {
  return QFileInfo(Resolve(path)).isDir();
}

std::string QtFileSystem::Native(const std::string& path) const {
  return FromQt(QDir::toNativeSeparators(Resolve(path)));
}

void QtFileSystem::MakeFolder(const std::string& path) {
  QDir().mkpath(Resolve(path));
}

bool QtFileSystem::FileExists(const std::string& path) const {
  return QFileInfo(Resolve(path)).isFile();
}

std::int64_t QtFileSystem::FileSize(const std::string& path) const {
  const QFileInfo file(Resolve(path));
  return file.isFile() ? file.size() : 0;
}

void QtFileSystem::DeleteFile(const std::string& path) {
  if (!FileExists(path)) throw platform::Failure(platform::failure::FileNotFound);
  if (!QFile::remove(Resolve(path))) throw platform::Failure(platform::failure::PermissionDenied);
}

std::unique_ptr<platform::OutputFile> QtFileSystem::Append(const std::string& path) {
  return OpenToAppend(Resolve(path));
}

std::unique_ptr<platform::OutputFile> QtFileSystem::Create(const std::string& path) {
  return OpenAnew(Resolve(path));
}

std::unique_ptr<platform::InputFile> QtFileSystem::Read(const std::string& path) {
  return OpenToRead(Resolve(path));
}

}  // namespace desktop
