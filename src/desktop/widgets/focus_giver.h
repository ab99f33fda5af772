#pragma once

#include <QWidget>

namespace desktop {

/// Gives the widget the keyboard's focus: at once where it can be seen, else as soon as its view
/// comes up.
void GiveFocus(QWidget& widget);

}  // namespace desktop
