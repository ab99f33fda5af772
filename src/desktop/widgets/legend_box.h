#pragma once

#include <QCheckBox>

namespace desktop {

/// A check box that is the legend of its curve: its text stands in the curve's colour, on a dark
/// edge where the colour is too light to be read on white.
class LegendBox : public QCheckBox {
  Q_OBJECT

 public:
  explicit LegendBox(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace desktop
