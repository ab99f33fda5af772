#pragma once

#include <QStringList>
#include <QWidget>

namespace tour {

/// What is painted and is cut by the edge of its own widget: the captions and numbers of a graph's
/// axes, the texts of a picture, the names of a legend. Nothing where the widget paints none.
QStringList CutPaint(QWidget& widget);

}  // namespace tour
