#include "desktop/widgets/window_fit.h"

#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <QWidget>

#include "desktop/look/scale.h"

namespace desktop {

namespace {

/// Room that a screen keeps for the window's own frame.
constexpr QSize FrameRoom(16, 40);

}  // namespace

WindowFit::WindowFit(QWidget& window, QSize usual)
    : QObject(&window), window_(window), design_(usual) {
  window_.installEventFilter(this);
}

void WindowFit::Follow() {
  TakeSize();
  look::ScaleTree(window_);
  // What the layout asks for is still that of the factor before, and a window opens in the middle
  // of its owner by the size that it has now.
  if (window_.layout() != nullptr) window_.layout()->activate();
  GiveSize();
}

void WindowFit::TakeSize() {
  const bool byUser = given_.isValid() && window_.size() != given_;
  if (byUser) design_ = window_.size().toSizeF() / factor_;
}

void WindowFit::GiveSize() {
  if (!design_.isValid()) return;
  factor_ = look::Scale();
  // The system puts it in front of its owner when it is on the screen, which is later than this.
  const QWidget* owner = window_.parentWidget();
  const QScreen* screen = (owner != nullptr ? owner->window() : &window_)->screen();
  const QSize room = screen->availableSize() - FrameRoom;
  window_.resize((design_ * factor_).toSize().boundedTo(room));
  given_ = window_.size();
}

bool WindowFit::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::Show:
      // A window that comes back from the bar of a desktop has not opened anew.
      if (!event->spontaneous()) Follow();
      break;
    case QEvent::ApplicationFontChange:
      // The factor goes by whole pixels of the program's font.
      if (window_.isVisible()) Follow();
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace desktop
