#pragma once

#include "desktop/widgets/click_label.h"

namespace desktop {

/// A counter whose colour is given by the program: digits in a colour that nobody reads on a card
/// stand on a dark plate, as those of an instrument do. The plate's room is kept, so that its
/// coming and going moves nothing. A text that is too long for its line gets narrower letters.
class CounterLabel : public ClickLabel {
  Q_OBJECT

 public:
  explicit CounterLabel(QWidget* parent);

  QSize minimumSizeHint() const override;
  /// Whether all of the text is seen.
  bool IsWhole() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// The font in which the text has its place, or comes nearest to it.
  QFont FittingFont() const;
};

}  // namespace desktop
