#pragma once

#include <QList>
#include <QSize>
#include <QString>

namespace tour {

/// One walk of the tour: the size of the window in its own pixels, the scale of the screen, and
/// whether the desktop around it is dark.
struct Plan {
  QString Name;
  QSize Size;
  int Scale;
  bool Dark;
};

/// Every size of a window that an engineer may have before him, on a light and on a dark desktop.
const QList<Plan>& Plans();

}  // namespace tour
