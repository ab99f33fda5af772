#pragma once

#include <string>

#include "platform/controls/control.h"
#include "platform/picture.h"

namespace platform {

/// A text on a view; `FontSize` is in points, an empty `FontName` is the view's own font.
class Label : public Control {
 public:
  Property<std::string> Caption;
  Property<std::string> FontName;
  Property<float> FontSize{10.0F};
  Property<bool> FontBold;
  Property<bool> FontUnderline;
  Property<Rgb> ForeColor;
  /// The ground of the text, where it has one of its own.
  Property<Rgb> BackColor{Rgb{255, 255, 255}};
  Event<> Click;
  Event<> DblClick;
};

/// A picture on a view, such as a logo.
class PictureBox : public Control {
 public:
  Property<Picture> Image;
  Event<> Click;
};

/// A geometric figure on a view, such as a running indicator.
class Shape : public Control {};

/// A region of a view that shows and hides with what stands in it.
class GroupBox : public Control {
 public:
  Property<std::string> Caption;
  Property<Rgb> BackColor{Rgb{255, 255, 255}};
};

}  // namespace platform
