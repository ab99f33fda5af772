#include "desktop/widgets/value_table_accessible.h"

namespace desktop {

namespace {

class Cell : public QAccessibleInterface, public QAccessibleTableCellInterface {
 public:
  Cell(ValueTable& table, int row, int column) : table_(table), row_(row), column_(column) {}

  bool isValid() const override { return true; }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(&table_);
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  void setText(QAccessible::Text, const QString&) override {}

  QString text(QAccessible::Text kind) const override {
    const QTableWidgetItem& item = *table_.item(row_, column_);
    if (kind == QAccessible::Name) return item.text();
    if (kind != QAccessible::Description) return {};
    return item.data(Qt::AccessibleDescriptionRole).toString();
  }
  QRect rect() const override {
    const QRect place = table_.visualItemRect(table_.item(row_, column_));
    return {table_.viewport()->mapToGlobal(place.topLeft()), place.size()};
  }
  QAccessible::Role role() const override {
    if (row_ == 0) return QAccessible::ColumnHeader;
    return column_ == 0 ? QAccessible::RowHeader : QAccessible::Cell;
  }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.readOnly = true;
    state.invisible = !table_.isVisible();
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type != QAccessible::TableCellInterface) return nullptr;
    return static_cast<QAccessibleTableCellInterface*>(this);
  }

  int rowIndex() const override { return row_; }
  int columnIndex() const override { return column_; }
  int rowExtent() const override { return 1; }
  int columnExtent() const override { return 1; }
  bool isSelected() const override { return false; }
  QList<QAccessibleInterface*> columnHeaderCells() const override { return Head(0, column_); }
  QList<QAccessibleInterface*> rowHeaderCells() const override { return Head(row_, 0); }
  QAccessibleInterface* table() const override { return parent(); }

 private:
  QList<QAccessibleInterface*> Head(int row, int column) const {
    if (row == row_ && column == column_) return {};
    return {parent()->tableInterface()->cellAt(row, column)};
  }

  ValueTable& table_;
  int row_;
  int column_;
};

QAccessibleInterface* MakeValueTable(const QString&, QObject* object) {
  auto* table = qobject_cast<ValueTable*>(object);
  return table != nullptr ? new ValueTableAccessible(*table) : nullptr;
}

}  // namespace

ValueTableAccessible::ValueTableAccessible(ValueTable& table)
    : QAccessibleWidget(&table, QAccessible::Table) {
  for (int i = 0; i < childCount(); ++i) {
    auto* cell = new Cell(table, i / ValueTable::Columns, i % ValueTable::Columns);
    cells_[static_cast<std::size_t>(i)] = QAccessible::registerAccessibleInterface(cell);
  }
}

ValueTableAccessible::~ValueTableAccessible() {
  for (const QAccessible::Id cell : cells_) QAccessible::deleteAccessibleInterface(cell);
}

void ValueTableAccessible::Install() {
  static const bool installed = [] {
    QAccessible::installFactory(MakeValueTable);
    return true;
  }();
  static_cast<void>(installed);
}

void* ValueTableAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface* ValueTableAccessible::child(int index) const {
  if (index < 0 || index >= childCount()) return nullptr;
  return QAccessible::accessibleInterface(cells_[static_cast<std::size_t>(index)]);
}

int ValueTableAccessible::indexOfChild(const QAccessibleInterface* child) const {
  for (int i = 0; i < childCount(); ++i) {
    if (this->child(i) == child) return i;
  }
  return -1;
}

QAccessibleInterface* ValueTableAccessible::childAt(int x, int y) const {
  for (int i = 0; i < childCount(); ++i) {
    if (child(i)->rect().contains(x, y)) return child(i);
  }
  return nullptr;
}

QAccessibleInterface* ValueTableAccessible::cellAt(int row, int column) const {
  const bool inside =
      row >= 0 && row < ValueTable::Rows && column >= 0 && column < ValueTable::Columns;
  return inside ? child(row * ValueTable::Columns + column) : nullptr;
}

QString ValueTableAccessible::columnDescription(int column) const {
  const QAccessibleInterface* head = cellAt(0, column);
  return head == nullptr ? QString() : head->text(QAccessible::Name);
}

QString ValueTableAccessible::rowDescription(int row) const {
  const QAccessibleInterface* head = cellAt(row, 0);
  return head == nullptr ? QString() : head->text(QAccessible::Name);
}

}  // namespace desktop
