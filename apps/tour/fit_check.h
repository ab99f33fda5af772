#pragma once

#include <QStringList>
#include <QWidget>

namespace tour {

/// What of a view cannot be seen as it is meant: each visible control that reaches out of what it
/// stands in, that another one covers, or whose text is cut. Empty where all is well.
QStringList Misfits(QWidget& view);

}  // namespace tour
