#include "desktop/services/qt_mouse_pointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace desktop {

void QtMousePointer::ShowHourglass() {
  if (hourglass_) return;
  QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
  hourglass_ = true;
}

void QtMousePointer::ShowNormal() {
  if (!hourglass_) return;
  QGuiApplication::restoreOverrideCursor();
  hourglass_ = false;
}

}  // namespace desktop
