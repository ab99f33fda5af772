#include "desktop/window/finder_dialog.h"

#include <QGroupBox>

#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {

namespace {

/// In pixels of the smallest window: a list of thirteen senders and more.
constexpr QSize UsualSize(600, 620);

}  // namespace

FinderDialog::FinderDialog(forms::IDlook& look, const platform::TabStrip& strip, Binder& binder,
                           platform::Guard& guard, QWidget* parent)
    : HeadedDialog(look.Window, strip, guard, UsualSize, parent),
      look_(look),
      list_(new CheckListView(this)) {
  setObjectName(QStringLiteral("IDlook"));
  AddSenders(binder);
  binder.Bind(look_.FrameCount, *AddLine(), QStringLiteral("IDlook.FrameCount"));
  binder.Bind(look_.Label1, *AddLine(), QStringLiteral("IDlook.Label1"));
  binder.Bind(look_.Command1, *AddCloseButton(), QStringLiteral("IDlook.Command1"));
  look_.Window.BackColor.Observe([this] { ShowGround(); });
  ShowGround();
}

void FinderDialog::AddSenders(Binder& binder) {
  auto* box = new QGroupBox(ToQt(look_.Frame1.Caption), this);
  binder.Bind(look_.Frame1, *box, QStringLiteral("IDlook.Frame1"));
  list_->setAccessibleName(box->title());
  binder.Bind(look_.List1, *list_, QStringLiteral("IDlook.List1"));
  auto* inside = new QVBoxLayout(box);
  inside->addWidget(list_);
  Body().addWidget(box, 1);
}

QLabel* FinderDialog::AddLine() {
  auto* line = new QLabel(this);
  line->setWordWrap(true);
  Body().addWidget(line);
  return line;
}

void FinderDialog::ShowGround() {
  // Label and frame have the colour of the window.
  QPalette colours = palette();
  colours.setColor(QPalette::Window, look::ColourOf(look_.Window.BackColor));
  colours.setColor(QPalette::Base, look::Card);
  setPalette(colours);
}

void FinderDialog::showEvent(QShowEvent* event) {
  list_->setFocus();
  QDialog::showEvent(event);
}

}  // namespace desktop
