#pragma once

#include "desktop/widgets/click_label.h"
#include "desktop/widgets/whole_tip.h"

namespace desktop {

/// A line with a text that comes from elsewhere, such as the path of a file or the ID of a sender;
/// one that is too long loses its middle, never its end, and is whole in the tip.
class ElidedLabel : public ClickLabel {
  Q_OBJECT

 public:
  explicit ElidedLabel(QWidget* parent);

  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  WholeTip* tip_;
};

}  // namespace desktop
