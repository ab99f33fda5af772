#include "desktop/widgets/radio_accessible.h"

#include <QLabel>

#include "desktop/look/text.h"

namespace desktop {

namespace {

QAccessibleInterface* MakeRadio(const QString&, QObject* object) {
  auto* button = qobject_cast<RadioButton*>(object);
  return button != nullptr ? new RadioAccessible(*button) : nullptr;
}

}  // namespace

RadioAccessible::RadioAccessible(RadioButton& button)
    : QAccessibleWidget(&button, QAccessible::RadioButton), button_(button) {}

void RadioAccessible::Install() {
  static const bool installed = [] {
    QAccessible::installFactory(MakeRadio);
    return true;
  }();
  static_cast<void>(installed);
}

QString RadioAccessible::text(QAccessible::Text kind) const {
  if (kind == QAccessible::Name) return PlainCaption(FromQt(button_.text()));
  QString usual = QAccessibleWidget::text(kind);
  if (kind != QAccessible::Description) return usual;
  return (button_.Group() + QLatin1Char(' ') + usual).trimmed();
}

QAccessible::State RadioAccessible::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.checkable = true;
  state.checked = button_.isChecked();
  return state;
}

QList<QPair<QAccessibleInterface*, QAccessible::Relation>> RadioAccessible::relations(
    QAccessible::Relation match) const {
  auto relations = QAccessibleWidget::relations(match);
  QLabel* heading = button_.Heading();
  if (heading != nullptr && match.testFlag(QAccessible::Label)) {
    relations.append({QAccessible::queryAccessibleInterface(heading), QAccessible::Label});
  }
  return relations;
}

QStringList RadioAccessible::actionNames() const {
  QStringList names = QAccessibleWidget::actionNames();
  if (button_.isEnabled()) names.prepend(toggleAction());
  return names;
}

void RadioAccessible::doAction(const QString& name) {
  if (name == toggleAction()) {
    button_.click();
  } else {
    QAccessibleWidget::doAction(name);
  }
}

}  // namespace desktop
