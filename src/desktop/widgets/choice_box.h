#pragma once

#include <QComboBox>

namespace desktop {

/// A drop-down list that the mouse wheel changes only where it was chosen first, so that scrolling
/// over a page does not alter its settings. An entry too long for the field ends in dots; the open
/// list is as wide as its entries.
class ChoiceBox : public QComboBox {
  Q_OBJECT

 public:
  explicit ChoiceBox(QWidget* parent);

  void showPopup() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
};

}  // namespace desktop
