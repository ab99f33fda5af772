#pragma once

#include <QAccessibleWidget>
#include <array>

#include "desktop/widgets/value_table.h"

namespace desktop {

/// What a screen reader tells of the table of magnitudes and angles: the names of the channels and
/// of the columns as heads, and each number with its channel and unit. The cells of a hidden page
/// are hidden, which the toolkit's own are not.
class ValueTableAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit ValueTableAccessible(ValueTable& table);
  ~ValueTableAccessible() override;

  /// Makes tables known to the accessibility of the platform; once is enough.
  static void Install();

  void* interface_cast(QAccessible::InterfaceType type) override;
  int childCount() const override { return ValueTable::Rows * ValueTable::Columns; }
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;

  QAccessibleInterface* cellAt(int row, int column) const override;
  int columnCount() const override { return ValueTable::Columns; }
  int rowCount() const override { return ValueTable::Rows; }
  QString columnDescription(int column) const override;
  QString rowDescription(int row) const override;
  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  void modelChange(QAccessibleTableModelChangeEvent*) override {}

  // Nothing of the table can be selected.
  int selectedCellCount() const override { return 0; }
  QList<QAccessibleInterface*> selectedCells() const override { return {}; }
  int selectedColumnCount() const override { return 0; }
  int selectedRowCount() const override { return 0; }
  QList<int> selectedColumns() const override { return {}; }
  QList<int> selectedRows() const override { return {}; }
  bool isColumnSelected(int) const override { return false; }
  bool isRowSelected(int) const override { return false; }
  bool selectRow(int) override { return false; }
  bool selectColumn(int) override { return false; }
  bool unselectRow(int) override { return false; }
  bool unselectColumn(int) override { return false; }

 private:
  /// The cells in the order of the rows, by the numbers that the platform knows them by.
  std::array<QAccessible::Id, std::size_t{ValueTable::Rows} * ValueTable::Columns> cells_{};
};

}  // namespace desktop
