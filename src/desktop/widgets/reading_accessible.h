#pragma once

#include <QAccessibleWidget>

#include "desktop/widgets/reading_field.h"

namespace desktop {

/// What a screen reader tells of a reading: the name and the unit from its caption, and the number
/// as a text that cannot be edited.
class ReadingAccessible : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit ReadingAccessible(ReadingField& field);

  /// Makes readings known to the accessibility of the platform; once is enough.
  static void Install();

  QString text(QAccessible::Text kind) const override;
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  int characterCount() const override;
  QString text(int startOffset, int endOffset) const override;
  /// The digits are not told apart: each has the place of the whole field.
  QRect characterRect(int offset) const override;
  int offsetAtPoint(const QPoint& point) const override;
  QString attributes(int offset, int* startOffset, int* endOffset) const override;
  int cursorPosition() const override { return 0; }
  void setCursorPosition(int) override {}
  int selectionCount() const override { return 0; }
  void selection(int selectionIndex, int* startOffset, int* endOffset) const override;
  void addSelection(int, int) override {}
  void removeSelection(int) override {}
  void setSelection(int, int, int) override {}
  void scrollToSubstring(int, int) override {}

 private:
  ReadingField& field_;
};

}  // namespace desktop
