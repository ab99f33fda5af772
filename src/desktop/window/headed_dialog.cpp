#include "desktop/window/headed_dialog.h"

#include <QPainter>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/widgets/window_fit.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr int HeaderHeight = 52;
constexpr int HeaderSize = look::HeadingSize + 2;
constexpr int Margin = 18;
constexpr int Gap = 12;

}  // namespace

HeadedDialog::HeadedDialog(platform::Window& window, const platform::TabStrip& strip,
                           platform::Guard& guard, QSize usual, QWidget* parent)
    : QDialog(parent),
      window_(window),
      strip_(strip),
      guard_(guard),
      heading_(new QLabel(ToQt(window.Caption), this)),
      body_(new QVBoxLayout) {
  setWindowTitle(heading_->text());
  heading_->setFont(look::BoldFont(HeaderSize));
  heading_->setFixedHeight(HeaderHeight);
  heading_->setContentsMargins(Margin, 0, Margin, 0);
  body_->setContentsMargins(Margin, Margin, Margin, Margin);
  body_->setSpacing(Gap);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->setSpacing(0);
  all->addWidget(heading_);
  all->addLayout(body_, 1);
  new WindowFit(*this, usual);
  window_.Loaded.Observe([this] {
    if (!window_.Loaded) done(QDialog::Accepted);
  });
}

QPushButton* HeadedDialog::AddCloseButton() {
  auto* close = new QPushButton(this);
  close->setDefault(true);
  body_->addWidget(close, 0, Qt::AlignRight);
  return close;
}

void HeadedDialog::reject() {
  guard_([this] { window_.Unload(); });
}

void HeadedDialog::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  look::PaintStrip(painter, heading_->geometry(), strip_);
}

}  // namespace desktop
