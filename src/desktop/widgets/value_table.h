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
  /// The unit of the magnitude in a row: it is painted behind the number, and a screen reader tells
  /// it with the channel.
  void TellUnit(int row, const QString& unit);
  /// The width of the table where all its texts are whole.
  int NeededWidth() const;
  /// Fills a place; it is higher where its rows need that. Names are cut rather than numbers.
  void Lay(const QRect& place);

 private:
  void ShowCell(int row, int column);
  void Describe(int row);
  int TextWidth(int column) const;
  int NeededWidth(int column) const;
  int GridWidth(int column) const;

  platform::Grid<Rows, Columns>& grid_;
};

}  // namespace desktop
