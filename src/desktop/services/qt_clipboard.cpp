#include "desktop/services/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "desktop/look/picture.h"

namespace desktop {

void QtClipboard::Clear() {
  QGuiApplication::clipboard()->clear();
}

void QtClipboard::SetPicture(const platform::Picture& picture) {
  QGuiApplication::clipboard()->setImage(ImageOf(picture));
}

}  // namespace desktop
