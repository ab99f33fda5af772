#include "desktop/services/qt_shell_links.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <utility>

#include "desktop/look/text.h"
#include "desktop/services/qt_file_system.h"

namespace desktop {

namespace {

constexpr const char* Mail = "mailto:";
constexpr const char* Subject = "?subject=";

namespace open_code = platform::open_code;

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)

/// What the exit code of the desktop's opener means.
std::int32_t CodeOf(int exitCode, QProcess::ExitStatus status) {
  constexpr int FileIsMissing = 2;
  if (status == QProcess::NormalExit && exitCode == 0) return open_code::Opened;
  return status == QProcess::NormalExit && exitCode == FileIsMissing ? open_code::FileNotFound
                                                                     : open_code::NoViewer;
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

void QtShellLinks::OpenFile(const std::string& path, Told told) {
  const QFileInfo file(QtFileSystem::Resolve(path));
  if (!file.absoluteDir().exists()) {
    told(open_code::PathNotFound);
  } else if (!file.isFile()) {
    told(open_code::FileNotFound);
  } else if (!file.isReadable()) {
    told(open_code::AccessDenied);
  } else {
    HandOver(file.absoluteFilePath(), told);
  }
}

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)

void QtShellLinks::HandOver(const QString& place, const Told& told) {
  // It outlives this object with its viewer, but not the application.
  auto* opener = new QProcess(QCoreApplication::instance());
  QObject::connect(opener, &QProcess::finished, opener, &QObject::deleteLater);
  QObject::connect(opener, &QProcess::errorOccurred, opener,
                   [opener](QProcess::ProcessError error) {
                     if (error == QProcess::FailedToStart) opener->deleteLater();
                   });
  QObject::connect(opener, &QProcess::finished, &life_,
                   [this, told, begun = std::chrono::steady_clock::now()](
                       int exitCode, QProcess::ExitStatus status) {
                     const bool taken = std::chrono::steady_clock::now() - begun > TakenAfter;
                     Answer(told, taken ? open_code::Opened : CodeOf(exitCode, status));
                   });
  QObject::connect(opener, &QProcess::errorOccurred, &life_,
                   [this, told](QProcess::ProcessError error) {
                     if (error == QProcess::FailedToStart) Answer(told, open_code::NoViewer);
                   });
  opener->setStandardInputFile(QProcess::nullDevice());
  opener->setStandardOutputFile(QProcess::nullDevice());
  opener->setStandardErrorFile(QProcess::nullDevice());
  opener->start(QStringLiteral("xdg-open"), {place});
}

#else

void QtShellLinks::HandOver(const QString& place, const Told& told) {
  const bool taken = QDesktopServices::openUrl(QUrl::fromLocalFile(place));
  told(taken ? open_code::Opened : open_code::NoViewer);
}

#endif

void QtShellLinks::Release() {
  --holds_;
  // The routine that showed the box comes first.
  QMetaObject::invokeMethod(
      &life_, [this] { PassAnswersOn(); }, Qt::QueuedConnection);
}

void QtShellLinks::Answer(const Told& told, std::int32_t code) {
  answers_.emplace_back([told, code] { told(code); });
  PassAnswersOn();
}

void QtShellLinks::PassAnswersOn() {
  while (holds_ == 0 && !answers_.empty()) {
    const std::function<void()> answer = std::move(answers_.front());
    answers_.pop_front();
    enter_(answer);
  }
}

}  // namespace desktop
