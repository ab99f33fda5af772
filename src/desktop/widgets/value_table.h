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

  /// The columns' widths as the grid tells them, in pixels at a text ratio of 1.
  int NaturalWidth() const;
  void SetGround(const QColor& ground);
  /// What a screen reader tells of the magnitude in a row: the channel and its unit.
  void DescribeMagnitude(int row, const QString& channel);
  /// Gives the table its place; texts and columns grow with the ratio.
  void Lay(const QRect& place, double textRatio);

 private:
  void ShowCell(int row, int column);

  platform::Grid<Rows, Columns>& grid_;
};

}  // namespace desktop
