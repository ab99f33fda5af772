#include "desktop/window/end_question_dialog.h"

#include <QLabel>
#include <QPushButton>
#include <QStyle>

#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {

EndQuestionDialog::EndQuestionDialog(forms::EndQuestion& question, Binder& binder,
                                     platform::Guard& guard, QWidget* parent)
    : MessageDialog(QStyle::SP_MessageBoxQuestion, parent),
      question_(question),
      binder_(binder),
      guard_(guard) {
  setObjectName(QStringLiteral("EndQuestion"));
  setWindowTitle(ToQt(question.Window.Caption));
  QLabel* text = AddWords();
  text->setFont(look::BoldFont(look::TextSize));
  binder.Bind(question_.Question, *text, QStringLiteral("EndQuestion.Question"));
  QLabel* remaining = AddWords();
  look::SetTextColour(*remaining, look::QuietText);
  binder.Bind(question_.Remaining, *remaining, QStringLiteral("EndQuestion.Remaining"));
  QPushButton* end = AddAnswer();
  end->setAutoDefault(false);
  binder.Bind(question_.End, *end, QStringLiteral("EndQuestion.End"));
  keep_ = AddAnswer();
  keep_->setDefault(true);
  binder.Bind(question_.Keep, *keep_, QStringLiteral("EndQuestion.Keep"));
  question_.Window.Visible.Observe([this] { Follow(); });
}

void EndQuestionDialog::Follow() {
  if (!question_.Window.Visible) {
    done(QDialog::Rejected);
    return;
  }
  setAccessibleDescription(ToQt(question_.Question.Caption));
  keep_->setFocus();
  binder_.ShowNow();
  open();
}

void EndQuestionDialog::reject() {
  guard_([this] { question_.Window.Unload(); });
}

}  // namespace desktop
