#pragma once

#include <QSize>

class QWidget;

namespace desktop::look {

/// How much larger than in the smallest window everything stands: texts, fields, buttons, paddings,
/// the strip of tabs and the status bar alike. 1 in the smallest window; it follows the window by
/// whole pixels of the text, up to a ceiling behind which texts would be large without being read
/// any better.
double Scale();
/// A length of the design, which is made for the smallest window, in the present one's pixels.
int Scaled(double pixels);
/// The same to parts of a pixel, for what is painted smooth: corners, slanted lines.
double Painted(double pixels);
/// The width of a straight line of the design: whole pixels, so that it is sharp, and one at least.
int LineWidth(double pixels = 1);

/// The factor for a window of this size.
double ScaleFor(QSize window);

/// A widget with more to follow than what `ScaleTree` knows of every widget.
class Scalable {
 public:
  virtual ~Scalable() = default;
  virtual void TakeScale() = 0;
};

/// Gives the program this factor: its font, and the marks of its style.
void SetScale(double scale);
/// Brings a tree of widgets and their layouts to the present factor: margins, spacings, least and
/// largest sizes, fonts of a size of their own. What the design gave each of them is remembered, so
/// that nothing drifts. Other windows that belong to the tree's follow by themselves.
void ScaleTree(QWidget& root);

/// Marks a widget whose font is scaled by who owns it.
void KeepFont(QWidget& widget);

}  // namespace desktop::look
