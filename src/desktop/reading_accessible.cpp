#include "desktop/reading_accessible.h"

namespace desktop {

namespace {

QAccessibleInterface* Make(const QString&, QObject* object) {
  auto* field = qobject_cast<ReadingField*>(object);
  return field != nullptr ? new ReadingAccessible(*field) : nullptr;
}

}  // namespace

ReadingAccessible::ReadingAccessible(ReadingField& field)
    : QAccessibleWidget(&field, QAccessible::StaticText), field_(field) {}

void ReadingAccessible::Install() {
  static const bool installed = [] {
    QAccessible::installFactory(Make);
    return true;
  }();
  static_cast<void>(installed);
}

QString ReadingAccessible::text(QAccessible::Text kind) const {
  return kind == QAccessible::Value ? field_.Text() : QAccessibleWidget::text(kind);
}

}  // namespace desktop
