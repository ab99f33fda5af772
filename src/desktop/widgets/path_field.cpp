#include "desktop/widgets/path_field.h"

#include <QFocusEvent>
#include <QPainter>
#include <QStyleOptionFrame>

namespace desktop {

PathField::PathField(QWidget* parent) : TextField(parent), tip_(new WholeTip(*this)) {
  connect(this, &QLineEdit::textChanged, tip_, &WholeTip::Tell);
}

void PathField::ShowText(const QString& text) {
  TextField::ShowText(text);
  if (!hasFocus()) end(false);
  tip_->Tell(text);
}

void PathField::focusInEvent(QFocusEvent* event) {
  TextField::focusInEvent(event);
  edited_ = true;
}

void PathField::focusOutEvent(QFocusEvent* event) {
  TextField::focusOutEvent(event);
  // A menu or another window takes the focus for a while only.
  const Qt::FocusReason reason = event->reason();
  if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason) return;
  edited_ = false;
  end(false);
}

QRect PathField::Room() const {
  // What the toolkit leaves free beside the text of a field.
  constexpr int Inset = 2;
  QStyleOptionFrame option;
  initStyleOption(&option);
  return style()
      ->subElementRect(QStyle::SE_LineEditContents, &option, this)
      .marginsRemoved(textMargins())
      .adjusted(Inset, 0, -Inset, 0);
}

void PathField::paintEvent(QPaintEvent* event) {
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideLeft, Room().width());
  if (edited_ || shown == text()) {
    TextField::paintEvent(event);
    return;
  }
  QPainter painter(this);
  QStyleOptionFrame option;
  initStyleOption(&option);
  style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
  style()->drawItemText(&painter, Room(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                        shown, QPalette::Text);
}

}  // namespace desktop
