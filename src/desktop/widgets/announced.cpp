#include "desktop/widgets/announced.h"

#include <QAccessibleWidget>
#include <QVariant>

namespace desktop {

namespace {

constexpr const char* Role = "announcedRole";

QAccessibleInterface* MakeAnnounced(const QString&, QObject* object) {
  const QVariant role = object->property(Role);
  if (!object->isWidgetType() || !role.isValid()) return nullptr;
  return new QAccessibleWidget(static_cast<QWidget*>(object),
                               static_cast<QAccessible::Role>(role.toInt()));
}

}  // namespace

void Announce(QWidget& widget, QAccessible::Role role, const QString& name) {
  static const bool installed = [] {
    QAccessible::installFactory(MakeAnnounced);
    return true;
  }();
  static_cast<void>(installed);
  widget.setProperty(Role, static_cast<int>(role));
  widget.setAccessibleName(name);
}

}  // namespace desktop
