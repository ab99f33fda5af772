#pragma once

#include <QObject>
#include <QWidget>
#include <cstdint>
#include <functional>

namespace desktop {

/// Tells of the presses on a widget that is enabled, by the numbers of `platform::mouse_button`.
/// The menu key stands for the right button, so that what lies behind it can be had by keys.
class MousePresses : public QObject {
  Q_OBJECT

 public:
  MousePresses(QWidget& widget, std::function<void(std::int16_t)> pressed);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget& widget_;
  std::function<void(std::int16_t)> pressed_;
};

}  // namespace desktop
