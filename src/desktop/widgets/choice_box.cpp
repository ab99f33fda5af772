#include "desktop/widgets/choice_box.h"

#include <QAbstractItemView>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QWheelEvent>
#include <algorithm>

namespace desktop {

namespace {

constexpr int Height = 30;
constexpr int LeastCharacters = 8;
constexpr int WidestList = 760;
constexpr int EntryPadding = 24;

}  // namespace

ChoiceBox::ChoiceBox(QWidget* parent) : QComboBox(parent) {
  setFixedHeight(Height);
  setFocusPolicy(Qt::StrongFocus);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(LeastCharacters);
}

void ChoiceBox::showPopup() {
  view()->setMinimumWidth(std::min(view()->sizeHintForColumn(0) + EntryPadding, WidestList));
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
