#pragma once

#include <QRect>
#include <QWidget>

#include "desktop/look/scale.h"
#include "platform/controls/label.h"

namespace desktop {

/// The program's logo on a view, drawn at the screen's own resolution. It stands where the layout
/// rules put it, and higher where the window's title leaves less room.
class LogoView : public QWidget, public look::Scalable {
  Q_OBJECT

 public:
  /// Width of the logo on the views that are not the information page, in pixels of the smallest
  /// window.
  static constexpr int UsualWidth = 132;

  /// What the places of the control count from.
  enum class From { Window, Parent };

  LogoView(platform::PictureBox& control, int width, From from, QWidget* parent);

  /// Where the logo of a control stands on a page: where the rules put it, and higher where that
  /// would be cut.
  static QRect PlaceOf(const platform::PictureBox& control, const QWidget& page);
  /// How far the logo stands above its place, in pixels.
  int Raised() const { return raised_; }
  void TakeScale() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Place();

  platform::PictureBox& control_;
  int width_;
  From from_;
  int raised_ = 0;
};

}  // namespace desktop
