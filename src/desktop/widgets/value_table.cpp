#include "desktop/widgets/value_table.h"

#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/look/text.h"
#include "desktop/look/twips.h"
#include "desktop/widgets/value_table_accessible.h"

namespace desktop {

namespace {

const QColor HeadText(0, 0, 255);
constexpr int ChannelColumn = 0;
constexpr int MagnitudeColumn = 1;
constexpr int AngleColumn = 2;
/// The longest usual texts of the numbers, such as kilovolts in millivolts with four decimals.
constexpr const char* LongMagnitude = "63,509,000.0000";
constexpr const char* LongAngle = "-179.999";
// In pixels of the smallest window.
constexpr int CellPadding = 8;
constexpr int RowHeight = 29;

/// Keeps the texts clear of the lines of the grid.
class CellDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    painter->fillRect(option.rect, index.data(Qt::BackgroundRole).value<QBrush>());
    const int padding = look::Scaled(CellPadding);
    const QRect room = option.rect.adjusted(padding, 0, -padding, 0);
    painter->setFont(option.font);
    painter->setPen(index.data(Qt::ForegroundRole).value<QBrush>().color());
    painter->drawText(
        room, index.data(Qt::TextAlignmentRole).toInt(),
        option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, room.width()));
  }
};

}  // namespace

ValueTable::ValueTable(platform::Grid<Rows, Columns>& grid, QWidget* parent)
    : QTableWidget(Rows, Columns, parent), grid_(grid) {
  horizontalHeader()->hide();
  horizontalHeader()->setStretchLastSection(true);
  verticalHeader()->hide();
  setEditTriggers(NoEditTriggers);
  setSelectionMode(NoSelection);
  setFocusPolicy(Qt::NoFocus);
  setItemDelegate(new CellDelegate(this));
  setWordWrap(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setObjectName(QStringLiteral("Grid1"));
  ValueTableAccessible::Install();
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

int ValueTable::GridWidth(int column) const {
  return look::Scaled(twips::Pixels(grid_.ColumnWidth[static_cast<std::size_t>(column)]));
}

int ValueTable::TextWidth(int column, const QString& least) const {
  int width = fontMetrics().horizontalAdvance(least);
  for (int row = 0; row < Rows; ++row) {
    width = std::max(width, fontMetrics().horizontalAdvance(item(row, column)->text()));
  }
  // The line of the grid takes a pixel of the cell.
  return width + 2 * look::Scaled(CellPadding) + 2;
}

void ValueTable::Lay(QPoint corner, int room) {
  const int frame = 2 * frameWidth();
  const int magnitude = std::max(GridWidth(MagnitudeColumn),
                                 TextWidth(MagnitudeColumn, QString::fromLatin1(LongMagnitude)));
  const int angle =
      std::max(GridWidth(AngleColumn), TextWidth(AngleColumn, QString::fromLatin1(LongAngle)));
  const int name = std::min({GridWidth(ChannelColumn), TextWidth(ChannelColumn, QString()),
                             room - frame - magnitude - angle});
  setColumnWidth(ChannelColumn, name);
  setColumnWidth(MagnitudeColumn, magnitude);
  setColumnWidth(AngleColumn, angle);
  const int row = look::Scaled(RowHeight);
  for (int i = 0; i < Rows; ++i) setRowHeight(i, row);
  setGeometry(QRect(corner, QSize(name + magnitude + angle + frame, row * Rows + frame)));
}

}  // namespace desktop
