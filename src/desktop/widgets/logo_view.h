#pragma once

#include <QSize>
#include <QWidget>

#include "platform/controls/label.h"

namespace desktop {

/// The program's logo on a view, drawn at the screen's own resolution. It stands where the layout
/// rules put it, and higher where the window's title leaves less room.
class LogoView : public QWidget {
  Q_OBJECT

 public:
  /// Width of the logo on the views that are not the information page, in pixels.
  static constexpr int UsualWidth = 142;

  /// `origin` is the place of the parent's corner in the control's coordinates, in pixels.
  LogoView(platform::PictureBox& control, int width, QPoint origin, QWidget* parent);

  /// How far the logo stands above its place, in pixels.
  int Raised() const { return raised_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Place();

  platform::PictureBox& control_;
  QPoint origin_;
  int raised_ = 0;
};

}  // namespace desktop
