#pragma once

#include <QRect>

#include "platform/controls/control.h"

class QWidget;

namespace desktop {

/// Where the layout rules put a control, in the coordinates of the page that shows it. The rules
/// count from the window's upper left corner, above the row of tabs.
QRect PlaceOnPage(const platform::Control& control, const QWidget& page);

}  // namespace desktop
