#pragma once

#include "desktop/widgets/click_label.h"

namespace desktop {

/// A counter whose colour is given by the program: digits in a colour that nobody reads on a card
/// stand on a dark plate, as those of an instrument do. The plate's room is kept, so that its
/// coming and going moves nothing.
class CounterLabel : public ClickLabel {
  Q_OBJECT

 public:
  explicit CounterLabel(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace desktop
