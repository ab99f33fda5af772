#pragma once

#include <QKeyEvent>

namespace desktop {

/// Whether the key works what has the focus, as a click would.
inline bool IsActivationKey(const QKeyEvent& event) {
  return event.key() == Qt::Key_Space || event.key() == Qt::Key_Return ||
         event.key() == Qt::Key_Enter;
}

}  // namespace desktop
