#pragma once

#include <QWidget>

#include "desktop/binding/binder.h"
#include "forms/debug_window.h"

namespace desktop {

/// The window for a developer's own traces; nothing in the program opens it.
class DebugView : public QWidget {
  Q_OBJECT

 public:
  DebugView(forms::DebugWindow& window, Binder& binder, QWidget* parent);
};

}  // namespace desktop
