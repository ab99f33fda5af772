#pragma once

#include <QRadioButton>

namespace desktop {

/// One choice of a group. Its caption is a text of the user's, so one that is too long ends in dots
/// instead of being cut; which choice of the group is on, the program decides.
class RadioButton : public QRadioButton {
  Q_OBJECT

 public:
  explicit RadioButton(QWidget* parent);

  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace desktop
