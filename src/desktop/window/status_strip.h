#pragma once

#include <QWidget>

#include "desktop/binding/binder.h"
#include "platform/controls/status_bar.h"

namespace desktop {

/// The bar at the foot of the window with its four panels.
class StatusStrip : public QWidget {
  Q_OBJECT

 public:
  /// Pixels.
  static constexpr int Height = 28;

  StatusStrip(platform::StatusBar& bar, Binder& binder, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace desktop
