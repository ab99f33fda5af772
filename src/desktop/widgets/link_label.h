#pragma once

#include "desktop/widgets/click_label.h"

namespace desktop {

/// A link: a text that takes the focus and reacts on Space and Return as on a click.
class LinkLabel : public ClickLabel {
  Q_OBJECT

 public:
  explicit LinkLabel(QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace desktop
