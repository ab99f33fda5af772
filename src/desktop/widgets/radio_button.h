#pragma once

#include <QLabel>
#include <QPointer>
#include <QRadioButton>
#include <QString>

#include "desktop/widgets/whole_tip.h"

namespace desktop {

/// One choice of a group. Its caption is the ID of a sender. One that is too long loses its middle,
/// since the units of a bay differ at the ends of theirs, and is whole in the tip. Which choice of
/// the group is on, the program decides.
class RadioButton : public QRadioButton {
  Q_OBJECT

 public:
  explicit RadioButton(QWidget* parent);

  /// What the choice is about: a heading on the page, or words where the page has none.
  void BelongTo(QLabel& heading) { heading_ = &heading; }
  void BelongTo(const QString& group) { group_ = group; }
  QLabel* Heading() const { return heading_; }
  QString Group() const { return heading_ != nullptr ? heading_->text() : group_; }

  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  WholeTip* tip_;
  QPointer<QLabel> heading_;
  QString group_;
};

}  // namespace desktop
