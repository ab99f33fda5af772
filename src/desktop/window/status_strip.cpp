#include "desktop/window/status_strip.h"

#include <QHBoxLayout>
#include <QPainter>
#include <array>

#include "desktop/look/look.h"
#include "desktop/look/twips.h"
#include "desktop/widgets/elided_label.h"

namespace desktop {

namespace {

/// In pixels of the smallest window.
constexpr int Height = 28;
constexpr int Padding = 16;
/// The panels' shares of the width. The second one has room for the name of a printed file.
constexpr std::array<int, 4> Shares = {4, 5, 3, 2};

}  // namespace

StatusStrip::StatusStrip(platform::StatusBar& bar, Binder& binder, QWidget* parent)
    : QWidget(parent), bar_(bar) {
  setObjectName(QStringLiteral("StatusBar1"));
  setFixedHeight(Height);
  TakeScale();
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(Padding, 0, Padding, 0);
  row->setSpacing(Padding);
  for (std::size_t i = 0; i < bar.Panels.size(); ++i) {
    // A panel may hold the path of a file.
    auto* panel = new ElidedLabel(this);
    panel->setFont(look::TextFont(look::SmallSize));
    panel->setMinimumWidth(1);
    look::SetTextColour(*panel, look::QuietText);
    binder.Bind(bar.Panels[i], *panel, ArrayName("StatusBar1.Panels", i + 1));
    row->addWidget(panel, Shares[i]);
  }
}

void StatusStrip::TakeScale() {
  bar_.Height = twips::Of(look::Scaled(Height));
}

void StatusStrip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), look::Panel);
  painter.setPen(look::Edge);
  painter.drawLine(0, 0, width(), 0);
}

}  // namespace desktop
