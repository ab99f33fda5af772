#include "desktop/widgets/radio_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace desktop {

RadioButton::RadioButton(QWidget* parent) : QRadioButton(parent) {
  setAutoExclusive(false);
}

QSize RadioButton::minimumSizeHint() const {
  return {iconSize().width() * 2, QRadioButton::minimumSizeHint().height()};
}

void RadioButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  const QRect room = style()->subElementRect(QStyle::SE_RadioButtonContents, &option, this);
  option.text = option.fontMetrics.elidedText(option.text, Qt::ElideRight, room.width(),
                                              Qt::TextShowMnemonic);
  painter.drawControl(QStyle::CE_RadioButton, option);
}

}  // namespace desktop
