#pragma once

#include <QRadioButton>

#include "desktop/widgets/whole_tip.h"

namespace desktop {

/// One choice of a group. Its caption is the ID of a sender. One that is too long loses its middle,
/// since the units of a bay differ at the ends of theirs, and is whole in the tip. Which choice of
/// the group is on, the program decides.
class RadioButton : public QRadioButton {
  Q_OBJECT

 public:
  explicit RadioButton(QWidget* parent);

  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  WholeTip* tip_;
};

}  // namespace desktop
