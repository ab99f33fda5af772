#include "desktop/widgets/radio_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

#include "desktop/look/text.h"
#include "desktop/widgets/radio_accessible.h"

namespace desktop {

RadioButton::RadioButton(QWidget* parent) : QRadioButton(parent), tip_(new WholeTip(*this)) {
  setAutoExclusive(false);
  RadioAccessible::Install();
}

QSize RadioButton::minimumSizeHint() const {
  return {iconSize().width() * 2, QRadioButton::minimumSizeHint().height()};
}

void RadioButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  const QRect room = style()->subElementRect(QStyle::SE_RadioButtonContents, &option, this);
  option.text = option.fontMetrics.elidedText(option.text, Qt::ElideMiddle, room.width(),
                                              Qt::TextShowMnemonic);
  painter.drawControl(QStyle::CE_RadioButton, option);
  // A new caption, font or size all end here.
  tip_->Tell(option.text == text() ? QString() : PlainCaption(FromQt(text())));
}

}  // namespace desktop
