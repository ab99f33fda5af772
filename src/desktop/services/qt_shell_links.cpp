#include "desktop/services/qt_shell_links.h"

#include <QDesktopServices>
#include <utility>

#include "desktop/look/text.h"
#include "system/places.h"
#include "system/process.h"

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
#include "desktop/services/qt_alarm.h"
#include "system/posix/file_opener.h"
#else
#include "system/opening.h"
#endif

namespace desktop {

namespace {

constexpr const char* Mail = "mailto:";
constexpr const char* Subject = "?subject=";

}  // namespace

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)

class QtShellLinks::Opener {
 public:
  explicit Opener(Enter enter) : files_(alarm_, std::move(enter)) {}

  void OpenFile(const std::string& path, const Told& told) { files_.OpenFile(path, told); }
  void Hold() { files_.Hold(); }
  void Release() { files_.Release(); }

 private:
  QtAlarm alarm_;
  host::FileOpener files_;
};

#else

// Elsewhere the desktop has its answer at once.
class QtShellLinks::Opener {
 public:
  explicit Opener(const Enter&) {}

  void OpenFile(const std::string& path, const Told& told) {
    if (const auto code = host::InTheWay(host::PlaceOf(path))) {
      told(*code);
      return;
    }
    const bool taken =
        QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(host::NativePlace(path))));
    told(taken ? platform::open_code::Opened : platform::open_code::NoViewer);
  }
  void Hold() {}
  void Release() {}
};

#endif

QtShellLinks::QtShellLinks(Enter enter) : opener_(std::make_unique<Opener>(std::move(enter))) {}

QtShellLinks::~QtShellLinks() = default;

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
  return QUrl::fromLocalFile(ToQt(host::NativePlace(target)));
}

void QtShellLinks::Open(const std::string& target) {
  host::KeepDescriptorsFromChildren();
  QDesktopServices::openUrl(Address(target));
}

void QtShellLinks::OpenFile(const std::string& path, Told told) {
  opener_->OpenFile(path, told);
}

void QtShellLinks::Hold() {
  opener_->Hold();
}

void QtShellLinks::Release() {
  opener_->Release();
}

}  // namespace desktop
