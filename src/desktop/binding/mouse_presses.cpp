#include "desktop/binding/mouse_presses.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <utility>

#include "platform/controls/control.h"

namespace desktop {

namespace {

std::int16_t NumberOf(Qt::MouseButton button) {
  if (button == Qt::LeftButton) return platform::mouse_button::Left;
  return button == Qt::RightButton ? platform::mouse_button::Right : platform::mouse_button::Middle;
}

}  // namespace

MousePresses::MousePresses(QWidget& widget, std::function<void(std::int16_t)> pressed)
    : QObject(&widget), widget_(widget), pressed_(std::move(pressed)) {
  widget_.installEventFilter(this);
}

bool MousePresses::eventFilter(QObject* watched, QEvent* event) {
  if (widget_.isEnabled()) {
    if (event->type() == QEvent::MouseButtonPress) {
      pressed_(NumberOf(static_cast<QMouseEvent*>(event)->button()));
    } else if (event->type() == QEvent::ContextMenu &&
               static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard) {
      pressed_(platform::mouse_button::Right);
    }
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace desktop
