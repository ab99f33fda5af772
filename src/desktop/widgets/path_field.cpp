#include "desktop/widgets/path_field.h"

#include <QFocusEvent>

namespace desktop {

PathField::PathField(QWidget* parent) : TextField(parent), tip_(new WholeTip(*this)) {
  connect(this, &QLineEdit::textChanged, tip_, &WholeTip::Tell);
}

void PathField::ShowText(const QString& text) {
  TextField::ShowText(text);
  if (!hasFocus()) end(false);
  tip_->Tell(text);
}

void PathField::focusOutEvent(QFocusEvent* event) {
  TextField::focusOutEvent(event);
  // A menu or another window takes the focus for a while only.
  const Qt::FocusReason reason = event->reason();
  if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) end(false);
}

}  // namespace desktop
