#pragma once

#include <QEvent>
#include <QObject>
#include <QWidget>

namespace desktop {

/// Counts the paintings of a widget.
class Paintings : public QObject {
 public:
  explicit Paintings(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++Count;
    return false;
  }
  int Count = 0;
};

}  // namespace desktop
