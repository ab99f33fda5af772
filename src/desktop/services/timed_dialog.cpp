#include "desktop/services/timed_dialog.h"

#include <QPushButton>
#include <QStyle>

#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {

namespace {

constexpr int TickMs = 1000;

}  // namespace

TimedDialog::TimedDialog(const platform::TimedMessage& message, QWidget* parent)
    : MessageDialog(QStyle::SP_MessageBoxWarning, parent),
      line_(message.CountdownLine),
      seconds_(message.Seconds) {
  setWindowTitle(ToQt(message.Title));
  const QFont usual = look::TextFont(look::TextSize, ToQt(message.FontName));
  QFont font = usual;
  font.setBold(message.Bold);
  QLabel* text = AddWords(DisplayLines(message.Text));
  text->setObjectName(QStringLiteral("Text"));
  text->setFont(font);
  countdown_ = AddWords();
  countdown_->setObjectName(QStringLiteral("Countdown"));
  countdown_->setFont(usual);
  look::SetTextColour(*countdown_, look::QuietText);
  QPushButton* close = AddAnswer(ToQt(message.ButtonCaption));
  close->setObjectName(QStringLiteral("Close"));
  close->setFont(usual);
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);

  ticks_.setTimerType(Qt::PreciseTimer);
  connect(&ticks_, &QTimer::timeout, this, &TimedDialog::CountDown);
  ShowSeconds();
  ticks_.start(TickMs);
}

void TimedDialog::CountDown() {
  --seconds_;
  if (seconds_ <= 0) {
    ticks_.stop();
    accept();
    return;
  }
  ShowSeconds();
}

void TimedDialog::ShowSeconds() {
  countdown_->setText(ToQt(line_).replace(QStringLiteral("#sec#"), QString::number(seconds_)));
}

}  // namespace desktop
