#include "desktop/widgets/row_picker.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMouseEvent>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/look/scale.h"

namespace desktop {

RowPicker::RowPicker(QWidget& page) : QObject(&page), page_(page) {
  page.setFocusPolicy(Qt::StrongFocus);
  page.installEventFilter(this);
}

void RowPicker::Add(std::vector<QLabel*> row) {
  for (QLabel* label : row) label->installEventFilter(this);
  rows_.push_back(std::move(row));
}

bool RowPicker::IsPicked(int row) const {
  return current_ >= 0 && row >= std::min(anchor_, current_) && row <= std::max(anchor_, current_);
}

QRect RowPicker::Place(int row) const {
  QRect place;
  for (const QLabel* label : rows_[static_cast<std::size_t>(row)]) place |= label->geometry();
  return place;
}

int RowPicker::RowAt(int y) const {
  for (int row = 0; row < Count(); ++row) {
    const QRect place = Place(row);
    if (y >= place.top() && y <= place.bottom()) return row;
  }
  return -1;
}

void RowPicker::Paint(QPainter& painter, const QRectF& area) const {
  painter.setRenderHint(QPainter::Antialiasing);
  for (int row = 0; row < Count(); ++row) {
    if (!IsPicked(row)) continue;
    const QRectF place = Place(row);
    const QRectF mark(area.left(), place.top(), area.width(), place.height());
    painter.fillRect(mark, look::Pressed);
    if (row != current_ || !page_.hasFocus()) continue;
    const int edge = look::LineWidth();
    const double inset = edge / 2.0;
    painter.setPen(QPen(look::Accent, edge));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(mark.adjusted(inset, inset, -inset, -inset));
  }
}

QString RowPicker::Lines(bool all) const {
  QString lines;
  for (int row = 0; row < Count(); ++row) {
    if (!all && !IsPicked(row)) continue;
    QStringList texts;
    for (const QLabel* label : rows_[static_cast<std::size_t>(row)]) {
      const bool told = label->isVisibleTo(&page_) && !label->text().trimmed().isEmpty();
      if (told) texts << label->text();
    }
    if (!texts.isEmpty()) lines += texts.join(u'\t') + u'\n';
  }
  return lines;
}

bool RowPicker::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
      return Press(watched, event);
    case QEvent::ContextMenu:
      ShowMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
      return true;
    case QEvent::ShortcutOverride:
      event->setAccepted(watched == &page_ &&
                         static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy));
      return false;
    case QEvent::KeyPress:
      return watched == &page_ && Key(*static_cast<QKeyEvent*>(event));
    case QEvent::FocusIn:
    case QEvent::FocusOut:
      page_.update();
      return false;
    default:
      return false;
  }
}

bool RowPicker::Press(QObject* watched, QEvent* event) {
  const auto& mouse = static_cast<const QMouseEvent&>(*event);
  const bool press = event->type() == QEvent::MouseButtonPress;
  if (!mouse.buttons().testFlag(Qt::LeftButton)) return false;
  const auto& widget = static_cast<const QWidget&>(*watched);
  const int row = RowAt(widget.mapTo(page_.window(), mouse.position().toPoint()).y() -
                        page_.mapTo(page_.window(), QPoint(0, 0)).y());
  if (row >= 0) Pick(row, !press || mouse.modifiers().testFlag(Qt::ShiftModifier));
  if (press) page_.setFocus(Qt::MouseFocusReason);
  return true;
}

bool RowPicker::Key(const QKeyEvent& key) {
  if (key.matches(QKeySequence::Copy)) {
    Copy(current_ < 0);
  } else if (key.matches(QKeySequence::SelectAll)) {
    PickAll();
  } else if (key.key() == Qt::Key_Up || key.key() == Qt::Key_Down) {
    const int step = key.key() == Qt::Key_Up ? -1 : 1;
    const int next = current_ < 0 ? 0 : std::clamp(current_ + step, 0, Count() - 1);
    Pick(next, key.modifiers().testFlag(Qt::ShiftModifier));
  } else {
    return false;
  }
  return true;
}

void RowPicker::Pick(int row, bool further) {
  if (!further || anchor_ < 0) anchor_ = row;
  current_ = row;
  page_.update();
}

void RowPicker::PickAll() {
  anchor_ = 0;
  current_ = Count() - 1;
  page_.update();
}

void RowPicker::Copy(bool all) {
  const QString lines = Lines(all);
  if (!lines.isEmpty()) QGuiApplication::clipboard()->setText(lines);
}

void RowPicker::ShowMenu(QPoint place) {
  auto* menu = new QMenu(&page_);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  QAction* copy = menu->addAction(tr("&Copy"), [this] { Copy(false); });
  copy->setShortcut(QKeySequence::Copy);
  copy->setEnabled(!Lines(false).isEmpty());
  menu->addAction(tr("Copy &all"), [this] { Copy(true); });
  menu->popup(place);
}

}  // namespace desktop
