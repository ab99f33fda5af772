#pragma once

#include <QAccessibleWidget>

#include "desktop/reading_field.h"

namespace desktop {

/// What a screen reader tells of a reading: the name from its caption, and the number as its value.
class ReadingAccessible : public QAccessibleWidget {
 public:
  explicit ReadingAccessible(ReadingField& field);

  /// Makes readings known to the accessibility of the platform; once is enough.
  static void Install();

  QString text(QAccessible::Text kind) const override;

 private:
  ReadingField& field_;
};

}  // namespace desktop
