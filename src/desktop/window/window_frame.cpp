#include "desktop/window/window_frame.h"

#include <QEvent>
#include <QScreen>
#include <QTimer>

#include "base/raised.h"
#include "desktop/look/text.h"
#include "desktop/look/twips.h"

namespace desktop {

WindowFrame::WindowFrame(platform::Window& window, QWidget& widget, platform::Guard& guard)
    : QObject(&widget), window_(window), widget_(widget), guard_(guard) {
  KeepMinimum();
  window_.Width.Store(twips::Of(widget_.width()));
  window_.Height.Store(twips::Of(widget_.height()));
  window_.Caption.Observe([this] { widget_.setWindowTitle(ToQt(window_.Caption)); });
  window_.State.Observe([this] { ShowState(); });
  window_.Visible.Observe([this] { ShowState(); });
  window_.Width.Observe([this] { Follow(window_.Width, FrameSize().width(), true); });
  window_.Height.Observe([this] { Follow(window_.Height, FrameSize().height(), false); });
  window_.Loaded.Observe([this] {
    if (window_.Loaded) return;
    // The routine that unloads its window goes on to its end first.
    QTimer::singleShot(0, this, [this] {
      if (Unloaded) Unloaded();
    });
  });
  widget_.installEventFilter(this);
}

QSize WindowFrame::FrameMargins() const {
  return widget_.isVisible() ? widget_.frameGeometry().size() - widget_.size() : QSize(0, 0);
}

void WindowFrame::KeepMinimum() {
  // The frame of the smallest window must fit on the smallest screen.
  const QSize designed(twips::Pixels(platform::MinimumWidth),
                       twips::Pixels(platform::MinimumHeight));
  const QSize frame = designed.boundedTo(widget_.screen()->availableSize());
  const QSize smallest = frame - FrameMargins();
  if (widget_.minimumSize() != smallest) widget_.setMinimumSize(smallest);
}

void WindowFrame::ShowState() {
  if (showing_) return;
  // A window that starts minimised is not shown before it is complete.
  const platform::Raised showing(showing_);
  if (!window_.Visible) {
    widget_.hide();
  } else if (window_.State == platform::WindowState::Maximized) {
    widget_.showMaximized();
  } else if (window_.State == platform::WindowState::Normal) {
    widget_.showNormal();
  } else if (widget_.isVisible()) {
    widget_.showMinimized();
  }
}

void WindowFrame::TakeState() {
  if (showing_) return;
  const platform::Raised showing(showing_);
  window_.State.Store(widget_.isMinimized()   ? platform::WindowState::Minimized
                      : widget_.isMaximized() ? platform::WindowState::Maximized
                                              : platform::WindowState::Normal);
}

void WindowFrame::Follow(std::int32_t twips, int present, bool wide) {
  const int side = twips::Pixels(twips);
  if (window_.State != platform::WindowState::Normal || side == present) return;
  QSize size = FrameSize();
  (wide ? size.rwidth() : size.rheight()) = side;
  widget_.resize(size - FrameMargins());
}

void WindowFrame::TakeSize() {
  if (telling_ || !widget_.isVisible() || widget_.isMinimized()) return;
  const platform::Raised telling(telling_);
  // The layout lets events in, and another size may be among them.
  while (FrameSize() != taken_ && !guard_.Closed()) {
    taken_ = FrameSize();
    if (Sized) Sized(taken_);
    guard_([this] { window_.TakeSize(twips::Of(taken_.width()), twips::Of(taken_.height())); });
  }
}

bool WindowFrame::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::Close:
      event->ignore();
      guard_([this] { window_.QueryUnload(); });
      return true;
    case QEvent::WindowStateChange:
      TakeState();
      break;
    case QEvent::Show:
    case QEvent::Move:
    case QEvent::Resize:
      KeepMinimum();
      TakeSize();
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace desktop
