#include "desktop/widgets/station_choice.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace desktop {

StationChoice::StationChoice(QWidget* parent) : QRadioButton(parent) {
  setAutoExclusive(false);
}

QSize StationChoice::minimumSizeHint() const {
  return {iconSize().width() * 2, QRadioButton::minimumSizeHint().height()};
}

void StationChoice::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  const QRect room = style()->subElementRect(QStyle::SE_RadioButtonContents, &option, this);
  option.text = option.fontMetrics.elidedText(option.text, Qt::ElideRight, room.width(),
                                              Qt::TextShowMnemonic);
  painter.drawControl(QStyle::CE_RadioButton, option);
}

}  // namespace desktop
