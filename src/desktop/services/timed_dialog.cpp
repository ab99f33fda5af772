#include "desktop/services/timed_dialog.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {

namespace {

constexpr int TickMs = 1000;
constexpr int Margin = 24;
constexpr int IconSize = 40;

}  // namespace

TimedDialog::TimedDialog(const platform::TimedMessage& message, QWidget* parent)
    : QDialog(parent),
      line_(message.CountdownLine),
      seconds_(message.Seconds),
      countdown_(new QLabel(this)) {
  setWindowTitle(ToQt(message.Title));
  QFont font = look::TextFont(look::TextSize, ToQt(message.FontName));
  font.setBold(message.Bold);
  auto* icon = new QLabel(this);
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(IconSize));
  auto* text = new QLabel(DisplayLines(message.Text), this);
  text->setObjectName(QStringLiteral("Text"));
  text->setTextFormat(Qt::PlainText);
  text->setFont(font);
  countdown_->setObjectName(QStringLiteral("Countdown"));
  QFont small = font;
  small.setPixelSize(look::SmallSize);
  countdown_->setFont(small);
  look::SetTextColour(*countdown_, look::QuietText);
  auto* close = new QPushButton(ToQt(message.ButtonCaption), this);
  close->setObjectName(QStringLiteral("Close"));
  close->setFont(font);
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);

  auto* words = new QVBoxLayout;
  words->setSpacing(Margin * 3 / 4);
  words->addWidget(text);
  words->addWidget(countdown_);
  auto* upper = new QHBoxLayout;
  upper->setSpacing(Margin * 3 / 4);
  upper->addWidget(icon, 0, Qt::AlignTop);
  upper->addLayout(words, 1);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(Margin, Margin, Margin, Margin * 3 / 4);
  all->setSpacing(Margin * 3 / 4);
  all->addLayout(upper);
  all->addWidget(close, 0, Qt::AlignRight);
  all->setSizeConstraint(QLayout::SetFixedSize);

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
