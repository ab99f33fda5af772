#include "desktop/widgets/path_field.h"

#include <QFocusEvent>

namespace desktop {

PathField::PathField(QWidget* parent) : TextField(parent) {
  connect(this, &QLineEdit::textChanged, this, [this] { ShowTip(); });
}

void PathField::ShowText(const QString& text) {
  TextField::ShowText(text);
  if (!hasFocus()) end(false);
  ShowTip();
}

void PathField::ShowTip() {
  showingTip_ = true;
  setToolTip(text().isEmpty() ? tip_ : tip_ + u'\n' + text());
  showingTip_ = false;
}

bool PathField::event(QEvent* event) {
  if (event->type() == QEvent::ToolTipChange && !showingTip_) {
    tip_ = toolTip();
    ShowTip();
  }
  return TextField::event(event);
}

void PathField::focusOutEvent(QFocusEvent* event) {
  TextField::focusOutEvent(event);
  // A menu or another window takes the focus for a while only.
  const Qt::FocusReason reason = event->reason();
  if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) end(false);
}

}  // namespace desktop
