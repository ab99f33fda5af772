#include "desktop/widgets/text_field.h"

#include <QMouseEvent>
#include <QSignalBlocker>
#include <algorithm>

#include "desktop/look/look.h"

namespace desktop {

TextField::TextField(QWidget* parent) : QLineEdit(parent) {
  setFixedHeight(look::FieldHeight);
}

void TextField::SetTypingLimit(int characters) {
  limit_ = characters > 0 ? characters : NoLimit;
  AdaptLimit(text().size());
}

void TextField::ShowText(const QString& shown) {
  if (shown != text()) {
    const QSignalBlocker quiet(this);
    const int cursor = cursorPosition();
    AdaptLimit(shown.size());
    setText(shown);
    setCursorPosition(cursor);
  }
  AdaptLimit(shown.size());
}

void TextField::AdaptLimit(qsizetype length) {
  const int allowed = std::max(limit_, static_cast<int>(length));
  if (allowed == maxLength()) return;
  // A new limit sets the text anew, which is no edit and must leave the cursor alone.
  const QSignalBlocker quiet(this);
  const int cursor = cursorPosition();
  setMaxLength(allowed);
  setCursorPosition(cursor);
}

void TextField::mouseDoubleClickEvent(QMouseEvent* event) {
  QLineEdit::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && DoubleClicked) DoubleClicked();
}

}  // namespace desktop
