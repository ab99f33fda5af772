#pragma once

#include <QLabel>
#include <functional>

namespace desktop {

/// A text that reacts on a click.
class ClickLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  std::function<void()> Clicked;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
};

}  // namespace desktop
