#include "desktop/window/history_dialog.h"

#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {

namespace {

constexpr QSize UsualSize(720, 560);
constexpr int HeaderHeight = 52;
constexpr int Margin = 18;

}  // namespace

HistoryDialog::HistoryDialog(forms::Revisionhistory& history, const platform::TabStrip& strip,
                             Binder& binder, platform::Guard& guard, QWidget* parent)
    : QDialog(parent), history_(history), strip_(strip), guard_(guard), text_(new TextArea(this)) {
  setObjectName(QStringLiteral("Revisionhistory"));
  setWindowTitle(ToQt(history.Window.Caption));
  resize(UsualSize);
  auto* heading = new QLabel(ToQt(history.Window.Caption), this);
  heading->setFont(look::BoldFont(look::HeadingSize + 2));
  heading->setFixedHeight(HeaderHeight);
  heading->setContentsMargins(Margin, 0, Margin, 0);
  text_->setReadOnly(true);
  text_->setAccessibleName(heading->text());
  binder.Bind(history.Text1, *text_, QStringLiteral("Revisionhistory.Text1"));
  auto* close = new QPushButton(this);
  close->setDefault(true);
  close->setMinimumWidth(6 * Margin);
  binder.Bind(history.cmdOK, *close, QStringLiteral("cmdOK"));
  auto* body = new QVBoxLayout;
  body->setContentsMargins(Margin, Margin, Margin, Margin);
  body->setSpacing(Margin);
  body->addWidget(text_, 1);
  body->addWidget(close, 0, Qt::AlignRight);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->setSpacing(0);
  all->addWidget(heading);
  all->addLayout(body, 1);
  history.Window.Loaded.Observe([this] {
    if (!history_.Window.Loaded) done(QDialog::Accepted);
  });
  close->setFocus();
}

void HistoryDialog::reject() {
  guard_([this] { history_.Window.Unload(); });
}

void HistoryDialog::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  look::PaintStrip(painter, QRect(0, 0, width(), HeaderHeight), strip_);
}

void HistoryDialog::showEvent(QShowEvent* event) {
  text_->moveCursor(QTextCursor::Start);
  QDialog::showEvent(event);
}

}  // namespace desktop
