#include "desktop/widgets/value_table.h"

#include <QHeaderView>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/look/twips.h"

namespace desktop {

namespace {

const QColor HeadText(0, 0, 255);
constexpr int ChannelColumn = 0;
constexpr int MagnitudeColumn = 1;
constexpr int AngleColumn = 2;

}  // namespace

ValueTable::ValueTable(platform::Grid<Rows, Columns>& grid, QWidget* parent)
    : QTableWidget(Rows, Columns, parent), grid_(grid) {
  horizontalHeader()->hide();
  horizontalHeader()->setStretchLastSection(true);
  verticalHeader()->hide();
  setEditTriggers(NoEditTriggers);
  setSelectionMode(NoSelection);
  setFocusPolicy(Qt::NoFocus);
  setStyleSheet(QStringLiteral("QTableWidget::item { padding: 0 7px; }"));
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setObjectName(QStringLiteral("Grid1"));
  setAccessibleName(QStringLiteral("Magnitudes and angles"));
  for (int row = 0; row < Rows; ++row) {
    for (int column = 0; column < Columns; ++column) {
      auto* item = new QTableWidgetItem;
      const bool head = row == 0 || column == 0;
      item->setForeground(head ? HeadText : QColor(Qt::black));
      item->setTextAlignment((column == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
      setItem(row, column, item);
      grid_.Cell[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)].Observe(
          [this, row, column] { ShowCell(row, column); });
    }
    for (int column = 0; column < Columns; ++column) ShowCell(row, column);
  }
}

void ValueTable::SetGround(const QColor& ground) {
  for (int row = 0; row < Rows; ++row) {
    for (int column = 0; column < Columns; ++column) item(row, column)->setBackground(ground);
  }
}

void ValueTable::DescribeMagnitude(int row, const QString& channel) {
  item(row, MagnitudeColumn)->setData(Qt::AccessibleDescriptionRole, channel);
}

void ValueTable::ShowCell(int row, int column) {
  const QString text =
      ToQt(grid_.Cell[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]);
  item(row, column)->setText(text);
  if (row == 0 || column != ChannelColumn) return;
  item(row, AngleColumn)
      ->setData(Qt::AccessibleDescriptionRole, QStringLiteral("%1 / [°]").arg(text));
}

int ValueTable::NaturalWidth() const {
  int width = 2 * frameWidth();
  for (const auto& column : grid_.ColumnWidth) width += twips::Pixels(column);
  return width;
}

void ValueTable::Lay(const QRect& place, double textRatio) {
  const int row = (place.height() - 2 * frameWidth()) / Rows;
  setGeometry(QRect(place.topLeft(), QSize(place.width(), row * Rows + 2 * frameWidth())));
  setFont(look::TextFont(static_cast<int>(look::TextSize * textRatio)));
  const int inner = place.width() - 2 * frameWidth();
  const double ratio = static_cast<double>(inner) / (NaturalWidth() - 2 * frameWidth());
  for (int column = 0; column < Columns; ++column) {
    setColumnWidth(column,
                   static_cast<int>(grid_.ColumnWidth[static_cast<std::size_t>(column)].Get() /
                                    static_cast<double>(twips::PerPixel) * ratio));
  }
  for (int i = 0; i < Rows; ++i) setRowHeight(i, row);
}

}  // namespace desktop
