#pragma once

#include <QObject>
#include <QSize>

class QWidget;

namespace desktop {

/// Keeps a window that stands beside the main one in its factor, from each opening on and while it
/// stands: what it holds, and the size that it opens with. A size that the user gave it is kept, as
/// a size of the smallest window. It is never larger than the screen that it stands on.
class WindowFit : public QObject {
  Q_OBJECT

 public:
  /// `usual` is the size that the window opens with first; without one its contents decide.
  explicit WindowFit(QWidget& window, QSize usual = {});

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Follow();
  void TakeSize();
  void GiveSize();

  QWidget& window_;
  QSizeF design_;
  /// What the window was given last, and by which factor.
  QSize given_;
  double factor_ = 1;
};

}  // namespace desktop
