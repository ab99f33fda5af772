#pragma once

#include <QTableWidget>

#include "platform/controls/grid.h"

namespace desktop {

/// The table of magnitudes and angles: a head row and a head column in blue, numbers at the right.
class ValueTable : public QTableWidget {
  Q_OBJECT

 public:
  static constexpr int Rows = 9;
  static constexpr int Columns = 3;

  ValueTable(platform::Grid<Rows, Columns>& grid, QWidget* parent);

  void SetGround(const QColor& ground);
  /// What a screen reader tells of the magnitude in a row: the channel and its unit.
  void DescribeMagnitude(int row, const QString& channel);
  /// Gives the table its corner and the width that there is for it. It takes what its columns need:
  /// numbers stand near their names, and names are cut rather than numbers.
  void Lay(QPoint corner, int room);

 private:
  void ShowCell(int row, int column);
  /// The width that the texts of a column need, and `least` beside them.
  int TextWidth(int column, const QString& least) const;
  int GridWidth(int column) const;

  platform::Grid<Rows, Columns>& grid_;
};

}  // namespace desktop
