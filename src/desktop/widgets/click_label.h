#pragma once

#include <QLabel>
#include <functional>

namespace desktop {

/// A text that reacts on a click and on a double click.
class ClickLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  std::function<void()> Clicked;
  std::function<void()> DoubleClicked;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
};

}  // namespace desktop
