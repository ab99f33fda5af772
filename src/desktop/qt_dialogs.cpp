#include "desktop/qt_dialogs.h"

#include <QMessageBox>

#include "desktop/text.h"
#include "desktop/timed_dialog.h"

namespace desktop {

namespace {

QMessageBox::Icon ToQt(platform::Icon icon) {
  switch (icon) {
    case platform::Icon::Critical:
      return QMessageBox::Critical;
    case platform::Icon::Exclamation:
      return QMessageBox::Warning;
    case platform::Icon::Information:
      return QMessageBox::Information;
    case platform::Icon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

QWidget* QtDialogs::Parent() const {
  return owner_ && owner_->isVisible() ? owner_.data() : nullptr;
}

platform::Answer QtDialogs::Show(const platform::Message& message) {
  const bool yesNo = message.BoxButtons == platform::Buttons::YesNo;
  QMessageBox box(Parent());
  box.setWindowTitle(message.Title.empty() ? QStringLiteral("Vornik")
                                           : desktop::ToQt(message.Title));
  box.setTextFormat(Qt::PlainText);
  box.setText(DisplayLines(message.Text));
  box.setIcon(ToQt(message.BoxIcon));
  box.setStandardButtons(yesNo ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
  const int pressed = box.exec();
  if (!yesNo) return platform::Answer::Ok;
  return pressed == QMessageBox::Yes ? platform::Answer::Yes : platform::Answer::No;
}

void QtDialogs::ShowTimed(const platform::TimedMessage& message) {
  TimedDialog(message, Parent()).exec();
}

}  // namespace desktop
