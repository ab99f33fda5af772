#include "desktop/window/history_dialog.h"

namespace desktop {

namespace {

/// In pixels of the smallest window.
constexpr QSize UsualSize(720, 560);

}  // namespace

HistoryDialog::HistoryDialog(forms::Revisionhistory& history, const platform::TabStrip& strip,
                             Binder& binder, platform::Guard& guard, QWidget* parent)
    : HeadedDialog(history.Window, strip, guard, UsualSize, parent), text_(new TextArea(this)) {
  setObjectName(QStringLiteral("Revisionhistory"));
  text_->setReadOnly(true);
  text_->setAccessibleName(windowTitle());
  binder.Bind(history.Text1, *text_, QStringLiteral("Revisionhistory.Text1"));
  Body().addWidget(text_, 1);
  QPushButton* close = AddCloseButton();
  binder.Bind(history.cmdOK, *close, QStringLiteral("cmdOK"));
  close->setFocus();
}

void HistoryDialog::showEvent(QShowEvent* event) {
  text_->moveCursor(QTextCursor::Start);
  QDialog::showEvent(event);
}

}  // namespace desktop
