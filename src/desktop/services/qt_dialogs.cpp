#include "desktop/services/qt_dialogs.h"

#include <QApplication>
#include <QPushButton>
#include <QStyle>
#include <optional>
#include <vector>

#include "desktop/look/text.h"
#include "desktop/services/timed_dialog.h"
#include "desktop/widgets/message_dialog.h"

namespace desktop {

namespace {

std::optional<QStyle::StandardPixmap> SignOf(platform::Icon icon) {
  switch (icon) {
    case platform::Icon::Critical:
      return QStyle::SP_MessageBoxCritical;
    case platform::Icon::Exclamation:
      return QStyle::SP_MessageBoxWarning;
    case platform::Icon::Information:
      return QStyle::SP_MessageBoxInformation;
    case platform::Icon::None:
      break;
  }
  return std::nullopt;
}

struct Choice {
  const char* Caption;
  platform::Answer Means;
};

/// What a box offers, from the left to the right.
struct Choices {
  std::vector<Choice> All;
  /// What Return takes.
  platform::Answer Usual;
  /// What a box that is waved away means: only the press of its own button stops.
  platform::Answer Closed;
};

Choices ChoicesOf(platform::Buttons buttons) {
  using platform::Answer;
  switch (buttons) {
    case platform::Buttons::YesNo:
      return {{{"&Yes", Answer::Yes}, {"&No", Answer::No}}, Answer::Yes, Answer::No};
    case platform::Buttons::OkStop:
      return {{{"&Stop", Answer::Stop}, {"&OK", Answer::Ok}}, Answer::Ok, Answer::Ok};
    case platform::Buttons::Ok:
      break;
  }
  return {{{"&OK", Answer::Ok}}, Answer::Ok, Answer::Ok};
}

}  // namespace

QWidget* QtDialogs::Parent() const {
  // The stream finder has windows of its own on top of it.
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  return owner_ && owner_->isVisible() ? owner_.data() : nullptr;
}

platform::Answer QtDialogs::Show(const platform::Message& message) {
  const platform::StandingBox standing(Stands);
  MessageDialog box(SignOf(message.BoxIcon), Parent());
  box.setWindowTitle(message.Title.empty() ? QStringLiteral("Vornik") : ToQt(message.Title));
  box.AddWords(DisplayLines(message.Text));
  const Choices choices = ChoicesOf(message.BoxButtons);
  platform::Answer answer = choices.Closed;
  for (const Choice& choice : choices.All) {
    QPushButton* button = box.AddAnswer(QString::fromLatin1(choice.Caption));
    if (choice.Means == choices.Usual) {
      button->setDefault(true);
      button->setFocus();
    }
    QObject::connect(button, &QPushButton::clicked, &box, [&box, &answer, means = choice.Means] {
      answer = means;
      box.accept();
    });
  }
  box.exec();
  return answer;
}

void QtDialogs::ShowTimed(const platform::TimedMessage& message) {
  const platform::StandingBox standing(Stands);
  TimedDialog(message, Parent()).exec();
}

}  // namespace desktop
