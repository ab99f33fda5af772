#include "desktop/widgets/whole_tip.h"

#include <QEvent>

#include "base/raised.h"

namespace desktop {

WholeTip::WholeTip(QWidget& widget) : QObject(&widget), widget_(widget), given_(widget.toolTip()) {
  widget.installEventFilter(this);
}

void WholeTip::Tell(const QString& whole) {
  if (whole == whole_) return;
  whole_ = whole;
  Show();
}

void WholeTip::Show() {
  const QString gap = given_.isEmpty() || whole_.isEmpty() ? QString() : QStringLiteral("\n");
  const platform::Raised showing(showing_);
  widget_.setToolTip(given_ + gap + whole_);
}

bool WholeTip::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &widget_ && event->type() == QEvent::ToolTipChange && !showing_) {
    given_ = widget_.toolTip();
    Show();
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace desktop
