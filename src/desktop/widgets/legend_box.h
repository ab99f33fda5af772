#pragma once

#include <QCheckBox>

namespace desktop {

/// A check box that is the legend of its curve: a swatch of the curve, as the graph draws it, and
/// its name in the colour of all texts. The control's text colour is the curve's.
class LegendBox : public QCheckBox {
  Q_OBJECT

 public:
  explicit LegendBox(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace desktop
