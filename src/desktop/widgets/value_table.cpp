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
constexpr int CellPadding = 6;
constexpr int UnitGap = 4;
constexpr int RowHeight = 29;
/// What is painted behind the text of a cell.
constexpr int UnitRole = Qt::UserRole;
/// The widest of the units.
constexpr const char* WidestUnit = "mA";

int UnitRoom(const QFontMetrics& metrics) {
  return metrics.horizontalAdvance(QString::fromLatin1(WidestUnit)) + look::Scaled(UnitGap);
}

/// Keeps the texts clear of the lines of the grid.
class CellDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    painter->fillRect(option.rect, index.data(Qt::BackgroundRole).value<QBrush>());
    const int padding = look::Scaled(CellPadding);
    QRect room = option.rect.adjusted(padding, 0, -padding, 0);
    painter->setFont(option.font);
    const QString unit = index.data(UnitRole).toString();
    if (!unit.isEmpty()) {
      QRect behind = room;
      behind.setLeft(room.right() + 1 - UnitRoom(option.fontMetrics) + look::Scaled(UnitGap));
      painter->setPen(look::QuietText);
      painter->drawText(behind, Qt::AlignLeft | Qt::AlignVCenter, unit);
      // The numbers of a column end together, whatever their units are.
      room.setRight(room.right() - UnitRoom(option.fontMetrics));
    }
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
  item(0, MagnitudeColumn)->setToolTip(QStringLiteral("RMS value, in the unit behind it"));
  item(0, AngleColumn)
      ->setToolTip(QStringLiteral("degrees; what leads voltage A has a positive angle"));
}

void ValueTable::SetGround(const QColor& ground) {
  for (int row = 0; row < Rows; ++row) {
    for (int column = 0; column < Columns; ++column) item(row, column)->setBackground(ground);
  }
}

void ValueTable::TellUnit(int row, const QString& unit) {
  item(row, MagnitudeColumn)->setData(UnitRole, unit);
  Describe(row);
}

void ValueTable::Describe(int row) {
  const QString channel = item(row, ChannelColumn)->text();
  const auto describe = [&](int column, const QString& unit) {
    item(row, column)
        ->setData(Qt::AccessibleDescriptionRole, QStringLiteral("%1 / [%2]").arg(channel, unit));
  };
  describe(MagnitudeColumn, item(row, MagnitudeColumn)->data(UnitRole).toString());
  describe(AngleColumn, QStringLiteral("°"));
}

void ValueTable::ShowCell(int row, int column) {
  const QString text =
      ToQt(grid_.Cell[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]);
  item(row, column)->setText(text);
  if (row > 0 && column == ChannelColumn) Describe(row);
}

int ValueTable::GridWidth(int column) const {
  return look::Scaled(twips::Pixels(grid_.ColumnWidth[static_cast<std::size_t>(column)]));
}

int ValueTable::TextWidth(int column) const {
  int width = 0;
  for (int row = 0; row < Rows; ++row) {
    width = std::max(width, fontMetrics().horizontalAdvance(item(row, column)->text()));
  }
  return width;
}

int ValueTable::NeededWidth(int column) const {
  // The line of the grid takes a pixel of the cell.
  const int around = 2 * look::Scaled(CellPadding) + 2;
  const auto widest = [&](const char* usual) {
    return std::max(TextWidth(column), fontMetrics().horizontalAdvance(QString::fromLatin1(usual)));
  };
  if (column == MagnitudeColumn) return widest(LongMagnitude) + UnitRoom(fontMetrics()) + around;
  if (column == AngleColumn) return widest(LongAngle) + around;
  return TextWidth(column) + around;
}

int ValueTable::NeededWidth() const {
  int width = 2 * frameWidth();
  for (int column = 0; column < Columns; ++column) width += NeededWidth(column);
  return width;
}

void ValueTable::Lay(const QRect& place) {
  // What is left over goes to the columns in the proportions that the grid has.
  const int left = std::max(0, place.width() - NeededWidth());
  int all = 0;
  for (int column = 0; column < Columns; ++column) all += GridWidth(column);
  const auto width = [&](int column) {
    return NeededWidth(column) + left * GridWidth(column) / all;
  };
  const int magnitude = width(MagnitudeColumn);
  const int angle = width(AngleColumn);
  setColumnWidth(ChannelColumn, place.width() - 2 * frameWidth() - magnitude - angle);
  setColumnWidth(MagnitudeColumn, magnitude);
  setColumnWidth(AngleColumn, angle);
  const int frame = 2 * frameWidth();
  const int row = std::max(look::Scaled(RowHeight), (place.height() - frame) / Rows);
  for (int i = 0; i < Rows; ++i) setRowHeight(i, row);
  setGeometry(QRect(place.topLeft(), QSize(place.width(), row * Rows + frame)));
}

}  // namespace desktop
