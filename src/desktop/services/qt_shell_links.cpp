#include "desktop/services/qt_shell_links.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include "desktop/look/text.h"
#include "desktop/services/qt_file_system.h"

namespace desktop {

namespace {

constexpr const char* Mail = "mailto:";
constexpr const char* Subject = "?subject=";

namespace open_code = platform::open_code;

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)

/// Hands a file to the desktop's opener, which tells by its exit code whether a viewer took it.
std::int32_t HandOver(const QString& place) {
  constexpr int PatienceMs = 3000;
  constexpr int FileIsMissing = 2;
  // The opener may stay as long as its viewer does, and lives on behind this call.
  auto* opener = new QProcess;
  QObject::connect(opener, &QProcess::finished, opener, &QObject::deleteLater);
  opener->setStandardInputFile(QProcess::nullDevice());
  opener->setStandardOutputFile(QProcess::nullDevice());
  opener->setStandardErrorFile(QProcess::nullDevice());
  opener->start(QStringLiteral("xdg-open"), {place});
  if (!opener->waitForStarted(PatienceMs)) {
    delete opener;
    return open_code::NoViewer;
  }
  if (!opener->waitForFinished(PatienceMs)) return open_code::Opened;
  const bool taken = opener->exitStatus() == QProcess::NormalExit && opener->exitCode() == 0;
  if (taken) return open_code::Opened;
  return opener->exitCode() == FileIsMissing ? open_code::FileNotFound : open_code::NoViewer;
}

#else

std::int32_t HandOver(const QString& place) {
  const bool taken = QDesktopServices::openUrl(QUrl::fromLocalFile(place));
  return taken ? open_code::Opened : open_code::NoViewer;
}

#endif

}  // namespace

QUrl QtShellLinks::Address(const std::string& target) {
  const QString text = ToQt(target);
  if (text.startsWith(QLatin1String(Mail))) {
    const qsizetype subject = text.indexOf(QLatin1String(Subject));
    if (subject < 0) return QUrl(text);
    // Blanks, colons and ampersands of the subject would end it or be lost.
    const QString head = text.left(subject) + QLatin1String(Subject);
    const QString words = text.mid(head.size());
    return QUrl::fromEncoded(head.toUtf8() + QUrl::toPercentEncoding(words), QUrl::StrictMode);
  }
  if (text.contains(QLatin1String("://"))) return QUrl(text);
  return QUrl::fromLocalFile(QtFileSystem::Resolve(target));
}

void QtShellLinks::Open(const std::string& target) {
  QDesktopServices::openUrl(Address(target));
}

std::int32_t QtShellLinks::OpenFile(const std::string& path) {
  const QFileInfo file(QtFileSystem::Resolve(path));
  if (!file.absoluteDir().exists()) return open_code::PathNotFound;
  if (!file.isFile()) return open_code::FileNotFound;
  if (!file.isReadable()) return open_code::AccessDenied;
  return HandOver(file.absoluteFilePath());
}

}  // namespace desktop
