#include "desktop/window/end_question_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {

namespace {

constexpr int Margin = 24;
constexpr int Gap = 18;
constexpr int IconSize = 40;

}  // namespace

EndQuestionDialog::EndQuestionDialog(forms::EndQuestion& question, Binder& binder,
                                     platform::Guard& guard, QWidget* parent)
    : QDialog(parent), question_(question), guard_(guard), keep_(new QPushButton(this)) {
  setObjectName(QStringLiteral("EndQuestion"));
  setWindowTitle(ToQt(question.Window.Caption));
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(Margin, Margin, Margin, Gap);
  all->setSpacing(Gap);
  all->addLayout(Words(binder));
  all->addLayout(Answers(binder));
  all->setSizeConstraint(QLayout::SetFixedSize);
  question_.Window.Visible.Observe([this] { Follow(); });
}

QLayout* EndQuestionDialog::Words(Binder& binder) {
  auto* icon = new QLabel(this);
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxQuestion).pixmap(IconSize));
  auto* text = new QLabel(this);
  text->setFont(look::BoldFont(look::TextSize));
  binder.Bind(question_.Question, *text, QStringLiteral("EndQuestion.Question"));
  auto* remaining = new QLabel(this);
  binder.Bind(question_.Remaining, *remaining, QStringLiteral("EndQuestion.Remaining"));
  look::SetTextColour(*remaining, look::QuietText);
  auto* words = new QVBoxLayout;
  words->setSpacing(Gap);
  words->addWidget(text);
  words->addWidget(remaining);
  auto* row = new QHBoxLayout;
  row->setSpacing(Gap);
  row->addWidget(icon, 0, Qt::AlignTop);
  row->addLayout(words, 1);
  return row;
}

QLayout* EndQuestionDialog::Answers(Binder& binder) {
  auto* end = new QPushButton(this);
  binder.Bind(question_.Keep, *keep_, QStringLiteral("EndQuestion.Keep"));
  binder.Bind(question_.End, *end, QStringLiteral("EndQuestion.End"));
  end->setAutoDefault(false);
  keep_->setDefault(true);
  auto* row = new QHBoxLayout;
  row->setSpacing(Gap);
  row->addStretch(1);
  row->addWidget(end);
  row->addWidget(keep_);
  return row;
}

void EndQuestionDialog::Follow() {
  if (!question_.Window.Visible) {
    done(QDialog::Rejected);
    return;
  }
  setAccessibleDescription(ToQt(question_.Question.Caption));
  keep_->setFocus();
  open();
}

void EndQuestionDialog::reject() {
  guard_([this] { question_.Window.Unload(); });
}

}  // namespace desktop
