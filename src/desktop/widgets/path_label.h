#pragma once

#include "desktop/widgets/click_label.h"

namespace desktop {

/// A line with the path of a file; one that is too long loses its middle, never its name.
class PathLabel : public ClickLabel {
  Q_OBJECT

 public:
  explicit PathLabel(QWidget* parent);

  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace desktop
