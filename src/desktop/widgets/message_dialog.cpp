#include "desktop/widgets/message_dialog.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QStringList>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "desktop/look/scale.h"
#include "desktop/widgets/window_fit.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr int Margin = 24;
constexpr int Gap = 18;
constexpr int AnswerGap = 10;
constexpr int SignSize = 40;
constexpr int WidestWords = 600;
/// Leaves room for the title of the window.
constexpr int LeastWords = 200;

/// The sign of the box in the present factor.
class Sign : public QLabel, public look::Scalable {
 public:
  Sign(QIcon icon, QWidget* parent) : QLabel(parent), icon_(std::move(icon)) {}
  void TakeScale() override { setPixmap(icon_.pixmap(look::Scaled(SignSize))); }

 private:
  QIcon icon_;
};

/// Words that wrap at the width of a box, and within a word that is wider than that.
class Words : public QLabel {
 public:
  explicit Words(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
  }
  QSize sizeHint() const override {
    return Room(look::Scaled(WidestWords)).expandedTo({look::Scaled(LeastWords), 0});
  }
  QSize minimumSizeHint() const override { return sizeHint(); }
  int heightForWidth(int width) const override { return Room(width).height(); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    QTextLayout lines(Lines(), font());
    LayOut(lines, width());
    lines.draw(&painter, {0, 0});
  }

 private:
  QString Lines() const { return text().replace(QLatin1Char('\n'), QChar::LineSeparator); }
  /// The size of the words within this width.
  static QSizeF LayOut(QTextLayout& lines, int width) {
    QTextOption wrapped;
    wrapped.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    lines.setTextOption(wrapped);
    QSizeF size;
    lines.beginLayout();
    for (QTextLine line = lines.createLine(); line.isValid(); line = lines.createLine()) {
      line.setLineWidth(width);
      line.setPosition({0, size.height()});
      size = {std::max(size.width(), line.naturalTextWidth()), size.height() + line.height()};
    }
    lines.endLayout();
    return size;
  }
  QSize Room(int width) const {
    QTextLayout lines(Lines(), font());
    const QSizeF size = LayOut(lines, width);
    return {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
  }
};

}  // namespace

MessageDialog::MessageDialog(std::optional<QStyle::StandardPixmap> sign, QWidget* parent)
    : QDialog(parent), words_(new QVBoxLayout), answers_(new QHBoxLayout) {
  auto* upper = new QHBoxLayout;
  upper->setSpacing(Gap);
  if (sign) upper->addWidget(new Sign(style()->standardIcon(*sign), this), 0, Qt::AlignTop);
  words_->setSpacing(Gap);
  upper->addLayout(words_, 1);
  // A line that is lower than the sign stands beside its middle.
  upper->setAlignment(words_, Qt::AlignVCenter);
  answers_->setSpacing(AnswerGap);
  answers_->addStretch(1);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(Margin, Margin, Margin, Gap);
  all->setSpacing(Gap);
  all->addLayout(upper);
  all->addLayout(answers_);
  all->setSizeConstraint(QLayout::SetFixedSize);
  new WindowFit(*this);
}

QLabel* MessageDialog::AddWords(const QString& words) {
  auto* label = new Words(this);
  label->setText(words);
  if (words_->count() == 0) setAccessibleDescription(words);
  words_->addWidget(label);
  return label;
}

QPushButton* MessageDialog::AddAnswer(const QString& caption) {
  auto* answer = new QPushButton(caption, this);
  answers_->addWidget(answer);
  return answer;
}

QString MessageDialog::Text() const {
  return words_->count() == 0 ? QString()
                              : static_cast<QLabel*>(words_->itemAt(0)->widget())->text();
}

void MessageDialog::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::Copy)) {
    QDialog::keyPressEvent(event);
    return;
  }
  QStringList texts;
  for (int i = 0; i < words_->count(); ++i) {
    texts << static_cast<QLabel*>(words_->itemAt(i)->widget())->text();
  }
  QGuiApplication::clipboard()->setText(texts.join(QStringLiteral("\n\n")));
}

void MessageDialog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

}  // namespace desktop
