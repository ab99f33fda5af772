#pragma once

#include <QObject>
#include <QSize>
#include <QWidget>
#include <functional>

#include "platform/controls/window.h"
#include "platform/loop/guard.h"

namespace desktop {

/// Ties the main window of the program to the one on the screen: title, state, size and the wish to
/// close. The program's window is as large as its frame; a wish to close is only passed on, and the
/// window goes when the program unloads it.
class WindowFrame : public QObject {
  Q_OBJECT

 public:
  WindowFrame(platform::Window& window, QWidget& widget, platform::Guard& guard);

  /// Called with the frame's new size before the layout rules are.
  std::function<void(QSize)> Sized;
  /// Called once the program has unloaded its window.
  std::function<void()> Unloaded;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowState();
  void TakeState();
  void TakeSize();
  void KeepMinimum();
  /// Brings one side of the frame to what the program set.
  void Follow(std::int32_t twips, int present, bool wide);
  QSize FrameMargins() const;
  QSize FrameSize() const { return widget_.size() + FrameMargins(); }

  platform::Window& window_;
  QWidget& widget_;
  platform::Guard& guard_;
  QSize taken_;
  /// The program is being told a size, or is bringing the window to a state of its own.
  bool telling_ = false;
  bool showing_ = false;
};

}  // namespace desktop
