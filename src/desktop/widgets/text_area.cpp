#include "desktop/widgets/text_area.h"

#include <QMouseEvent>

namespace desktop {

namespace {

/// In pixels of the smallest window.
constexpr double TextMargin = 10;

}  // namespace

TextArea::TextArea(QWidget* parent) : QPlainTextEdit(parent) {
  setTabChangesFocus(true);
  TakeScale();
}

void TextArea::TakeScale() {
  document()->setDocumentMargin(look::Painted(TextMargin));
}

void TextArea::mouseDoubleClickEvent(QMouseEvent* event) {
  QPlainTextEdit::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && DoubleClicked) DoubleClicked();
}

}  // namespace desktop
