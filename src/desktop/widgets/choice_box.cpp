#include "desktop/widgets/choice_box.h"

#include <QAbstractItemView>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QWheelEvent>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/look/scale.h"

namespace desktop {

namespace {

constexpr int LeastCharacters = 8;
// In pixels of the smallest window.
constexpr int WidestList = 760;
constexpr int EntryPadding = 24;

}  // namespace

ChoiceBox::ChoiceBox(QWidget* parent) : QComboBox(parent) {
  setFixedHeight(look::FieldHeight);
  setFocusPolicy(Qt::StrongFocus);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(LeastCharacters);
}

void ChoiceBox::showPopup() {
  view()->setMinimumWidth(std::min(view()->sizeHintForColumn(0) + look::Scaled(EntryPadding),
                                   look::Scaled(WidestList)));
  QComboBox::showPopup();
}

void ChoiceBox::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionComboBox option;
  initStyleOption(&option);
  const QRect room =
      style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
  option.currentText =
      option.fontMetrics.elidedText(option.currentText, Qt::ElideRight, room.width() - 4);
  painter.drawComplexControl(QStyle::CC_ComboBox, option);
  painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void ChoiceBox::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QComboBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

}  // namespace desktop
