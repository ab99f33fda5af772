#pragma once

#include <QStringList>
#include <QWidget>

namespace tour {

/// Edges that should be one and are not: frames, fields, buttons and tables whose edges miss each
/// other by a few pixels, which no design means.
QStringList MissedEdges(QWidget& view);

}  // namespace tour
