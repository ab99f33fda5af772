#pragma once

#include <QAccessible>
#include <QString>
#include <QWidget>

namespace desktop {

/// Tells assistive programs what a widget is, where it paints itself or holds others and the
/// toolkit can tell nothing of it. To be said before the widget is shown.
void Announce(QWidget& widget, QAccessible::Role role, const QString& name);

}  // namespace desktop
