#pragma once

#include <QColor>
#include <QIcon>

namespace desktop {

/// The sign of a message box: a letter on a disc.
QIcon SignIcon(const QColor& disc, QChar letter);

}  // namespace desktop
