#include "desktop/services/qt_dialogs.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include "desktop/look/text.h"
#include "desktop/services/timed_dialog.h"

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

platform::Answer AskYesNo(QMessageBox& box) {
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  return box.exec() == QMessageBox::Yes ? platform::Answer::Yes : platform::Answer::No;
}

platform::Answer AskOkStop(QMessageBox& box) {
  QPushButton* ok = box.addButton(QMessageBox::Ok);
  const QPushButton* stop = box.addButton(QStringLiteral("Stop"), QMessageBox::RejectRole);
  // Only the press of its own button stops; a box that is waved away must not.
  box.setDefaultButton(ok);
  box.setEscapeButton(ok);
  box.exec();
  return box.clickedButton() == stop ? platform::Answer::Stop : platform::Answer::Ok;
}

}  // namespace

QWidget* QtDialogs::Parent() const {
  // The stream finder has windows of its own on top of it.
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  return owner_ && owner_->isVisible() ? owner_.data() : nullptr;
}

platform::Answer QtDialogs::Show(const platform::Message& message) {
  const platform::StandingBox standing(Stands);
  QMessageBox box(Parent());
  box.setWindowTitle(message.Title.empty() ? QStringLiteral("Vornik")
                                           : desktop::ToQt(message.Title));
  box.setTextFormat(Qt::PlainText);
  box.setText(DisplayLines(message.Text));
  box.setIcon(ToQt(message.BoxIcon));
  switch (message.BoxButtons) {
    case platform::Buttons::YesNo:
      return AskYesNo(box);
    case platform::Buttons::OkStop:
      return AskOkStop(box);
    case platform::Buttons::Ok:
      break;
  }
  box.setStandardButtons(QMessageBox::Ok);
  box.exec();
  return platform::Answer::Ok;
}

void QtDialogs::ShowTimed(const platform::TimedMessage& message) {
  const platform::StandingBox standing(Stands);
  TimedDialog(message, Parent()).exec();
}

}  // namespace desktop
