#include "desktop/services/qt_shell_links.h"

#include <QDesktopServices>

#include "desktop/look/text.h"
#include "desktop/services/qt_file_system.h"

namespace desktop {

namespace {

constexpr const char* Mail = "mailto:";
constexpr const char* Subject = "?subject=";

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

}  // namespace desktop
