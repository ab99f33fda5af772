#pragma once

#include <QWidget>

#include "desktop/binding/binder.h"
#include "desktop/look/scale.h"
#include "platform/controls/status_bar.h"

namespace desktop {

/// The bar at the foot of the window with its four panels.
class StatusStrip : public QWidget, public look::Scalable {
  Q_OBJECT

 public:
  StatusStrip(platform::StatusBar& bar, Binder& binder, QWidget* parent);
  void TakeScale() override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  platform::StatusBar& bar_;
};

}  // namespace desktop
