#include "desktop/window/finder_dialog.h"

#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {

namespace {

constexpr QSize UsualSize(560, 460);
constexpr int HeaderHeight = 52;
constexpr int Margin = 18;

}  // namespace

FinderDialog::FinderDialog(forms::IDlook& look, const platform::TabStrip& strip, Binder& binder,
                           platform::Guard& guard, QWidget* parent)
    : QDialog(parent), look_(look), strip_(strip), guard_(guard), list_(new CheckListView(this)) {
  setObjectName(QStringLiteral("IDlook"));
  setWindowTitle(ToQt(look.Window.Caption));
  resize(UsualSize);
  auto* heading = new QLabel(ToQt(look.Window.Caption), this);
  heading->setFont(look::BoldFont(look::HeadingSize + 2));
  heading->setFixedHeight(HeaderHeight);
  heading->setContentsMargins(Margin, 0, Margin, 0);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->setSpacing(0);
  all->addWidget(heading);
  all->addWidget(Sheet(binder), 1);
  look_.Window.BackColor.Observe([this] { ShowGround(); });
  ShowGround();
  look_.Window.Loaded.Observe([this] {
    if (!look_.Window.Loaded) done(QDialog::Accepted);
  });
}

QWidget* FinderDialog::Sheet(Binder& binder) {
  auto* sheet = new QWidget(this);
  auto* box = new QGroupBox(ToQt(look_.Frame1.Caption), sheet);
  binder.Bind(look_.Frame1, *box, QStringLiteral("IDlook.Frame1"));
  list_->setAccessibleName(box->title());
  binder.Bind(look_.List1, *list_, QStringLiteral("IDlook.List1"));
  auto* inside = new QVBoxLayout(box);
  inside->addWidget(list_);
  auto* advice = new QLabel(sheet);
  advice->setWordWrap(true);
  binder.Bind(look_.Label1, *advice, QStringLiteral("IDlook.Label1"));
  auto* count = new QLabel(sheet);
  count->setWordWrap(true);
  binder.Bind(look_.FrameCount, *count, QStringLiteral("IDlook.FrameCount"));
  auto* close = new QPushButton(sheet);
  close->setDefault(true);
  close->setMinimumWidth(6 * Margin);
  binder.Bind(look_.Command1, *close, QStringLiteral("IDlook.Command1"));
  auto* column = new QVBoxLayout(sheet);
  column->setContentsMargins(Margin, Margin, Margin, Margin);
  column->setSpacing(Margin * 2 / 3);
  column->addWidget(box, 1);
  column->addWidget(count);
  column->addWidget(advice);
  column->addWidget(close, 0, Qt::AlignRight);
  return sheet;
}

void FinderDialog::ShowGround() {
  // Label and frame have the colour of the window.
  QPalette colours = palette();
  colours.setColor(QPalette::Window, look::ColourOf(look_.Window.BackColor));
  colours.setColor(QPalette::Base, look::Card);
  setPalette(colours);
}

void FinderDialog::reject() {
  guard_([this] { look_.Window.Unload(); });
}

void FinderDialog::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  look::PaintStrip(painter, QRect(0, 0, width(), HeaderHeight), strip_);
}

void FinderDialog::showEvent(QShowEvent* event) {
  list_->setFocus();
  QDialog::showEvent(event);
}

}  // namespace desktop
