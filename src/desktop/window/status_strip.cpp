#include "desktop/window/status_strip.h"

#include <QHBoxLayout>
#include <QPainter>
#include <algorithm>
#include <array>

#include "desktop/look/look.h"
#include "desktop/look/twips.h"
#include "desktop/widgets/elided_label.h"

namespace desktop {

namespace {

/// In pixels of the smallest window.
constexpr int Height = 28;
constexpr int Gap = 16;
/// Keeps the tip of an empty panel in reach.
constexpr int LeastWidth = 16;
/// The panels' shares of the width. The second one has room for the name of a printed file.
constexpr std::array<int, 4> Shares = {4, 5, 3, 2};

}  // namespace

StatusStrip::StatusStrip(platform::StatusBar& bar, Binder& binder, QWidget* parent)
    : QWidget(parent), bar_(bar) {
  setObjectName(QStringLiteral("StatusBar1"));
  setFixedHeight(Height);
  TakeScale();
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(look::PageMargin, 0, look::PageMargin, 0);
  row->setSpacing(Gap);
  for (std::size_t i = 0; i < bar.Panels.size(); ++i) {
    // A panel may hold the path of a file.
    auto* panel = new ElidedLabel(this);
    panel->setMinimumWidth(LeastWidth);
    look::SetTextColour(*panel, look::QuietText);
    binder.Bind(bar.Panels[i], *panel, ArrayName("StatusBar1.Panels", i + 1));
    row->addWidget(panel);
    // One that says nothing leaves its room to the others.
    const platform::Property<std::string>& text = bar.Panels[i].Text;
    const auto share = [row, i, &text] {
      row->setStretch(static_cast<int>(i), text.Get().empty() ? 0 : Shares[i]);
    };
    bar.Panels[i].Text.Observe(share);
    share();
  }
}

void StatusStrip::TakeScale() {
  bar_.Height = twips::Of(look::Scaled(Height));
}

void StatusStrip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), look::Panel);
  painter.fillRect(0, 0, width(), std::max(1, look::Scaled(1)), look::Edge);
}

}  // namespace desktop
