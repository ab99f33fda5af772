#include "desktop/window/file_drops.h"

#include <QApplication>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include "desktop/look/text.h"

namespace desktop {

namespace {

std::vector<std::string> PathsOf(const QMimeData& data) {
  std::vector<std::string> paths;
  for (const QUrl& url : data.urls()) {
    paths.push_back(FromQt(url.isLocalFile() ? url.toLocalFile() : url.toString()));
  }
  return paths;
}

}  // namespace

FileDrops::FileDrops(QWidget& window) : QObject(&window), window_(window) {
  window_.setAcceptDrops(true);
  qApp->installEventFilter(this);
}

bool FileDrops::IsOurs(const QObject* watched) const {
  const auto* widget = qobject_cast<const QWidget*>(watched);
  return widget != nullptr && widget->window() == &window_;
}

bool FileDrops::eventFilter(QObject* watched, QEvent* event) {
  const bool drops = event->type() == QEvent::Drop;
  if (!drops && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove) {
    return false;
  }
  auto& drop = static_cast<QDropEvent&>(*event);
  if (!IsOurs(watched) || !drop.mimeData()->hasUrls()) return false;
  if (QApplication::activeModalWidget() != nullptr) {
    drop.ignore();
    return true;
  }
  // The file is read where it lies; whoever moves files would delete it there.
  drop.setDropAction(Qt::CopyAction);
  drop.accept();
  if (drops) Take(drop);
  return true;
}

void FileDrops::Take(const QDropEvent& drop) {
  // Whoever drags waits for the end of this event, and what follows may ask the user something.
  QTimer::singleShot(0, this, [this, paths = PathsOf(*drop.mimeData())] {
    if (QApplication::activeModalWidget() != nullptr) return;
    if (Dropped) Dropped(paths);
  });
}

}  // namespace desktop
