#include "desktop/widgets/reading_accessible.h"

namespace desktop {

namespace {

QAccessibleInterface* MakeReading(const QString&, QObject* object) {
  auto* field = qobject_cast<ReadingField*>(object);
  return field != nullptr ? new ReadingAccessible(*field) : nullptr;
}

}  // namespace

ReadingAccessible::ReadingAccessible(ReadingField& field)
    : QAccessibleWidget(&field, QAccessible::StaticText), field_(field) {}

void ReadingAccessible::Install() {
  static const bool installed = [] {
    QAccessible::installFactory(MakeReading);
    return true;
  }();
  static_cast<void>(installed);
}

QString ReadingAccessible::text(QAccessible::Text kind) const {
  return kind == QAccessible::Value ? field_.Text() : QAccessibleWidget::text(kind);
}

QAccessible::State ReadingAccessible::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.readOnly = true;
  return state;
}

void* ReadingAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

int ReadingAccessible::characterCount() const {
  return static_cast<int>(field_.Text().size());
}

QString ReadingAccessible::text(int startOffset, int endOffset) const {
  return field_.Text().mid(startOffset, endOffset - startOffset);
}

QRect ReadingAccessible::characterRect(int) const {
  return rect();
}

int ReadingAccessible::offsetAtPoint(const QPoint& point) const {
  return rect().contains(point) ? 0 : -1;
}

QString ReadingAccessible::attributes(int, int* startOffset, int* endOffset) const {
  *startOffset = 0;
  *endOffset = characterCount();
  return {};
}

void ReadingAccessible::selection(int, int* startOffset, int* endOffset) const {
  *startOffset = 0;
  *endOffset = 0;
}

}  // namespace desktop
