#pragma once

#include <QStringList>
#include <QWidget>

namespace tour {

/// What of a view, a dialog or a page, cannot be seen as it is meant: each visible control that
/// reaches out of what it stands in, that another one covers, whose text or painting is cut, or
/// whose edge misses that of its neighbour. Empty where all is well.
QStringList Misfits(QWidget& view);

}  // namespace tour
