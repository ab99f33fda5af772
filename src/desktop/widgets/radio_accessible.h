#pragma once

#include <QAccessibleWidget>

#include "desktop/widgets/radio_button.h"

namespace desktop {

/// What a screen reader tells of one choice of a group: that it is a radio button, whether it is
/// the chosen one, and what the choice is about. The toolkit takes a choice whose group the program
/// keeps for a check box.
class RadioAccessible : public QAccessibleWidget {
 public:
  explicit RadioAccessible(RadioButton& button);

  /// Makes choices known to the accessibility of the platform; once is enough.
  static void Install();

  QString text(QAccessible::Text kind) const override;
  QAccessible::State state() const override;
  QList<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
      QAccessible::Relation match) const override;
  QStringList actionNames() const override;
  void doAction(const QString& name) override;

 private:
  RadioButton& button_;
};

}  // namespace desktop
