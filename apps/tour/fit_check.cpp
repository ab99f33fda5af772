#include "fit_check.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTableWidget>
#include <array>

#include "desktop/widgets/counter_label.h"
#include "desktop/widgets/elided_label.h"
#include "desktop/widgets/quiet_line.h"
#include "desktop/widgets/run_button.h"
#include "edge_check.h"
#include "painted_check.h"

namespace tour {

namespace {

QString NameOf(const QWidget& widget) {
  if (!widget.objectName().isEmpty()) return widget.objectName();
  const auto* label = qobject_cast<const QLabel*>(&widget);
  const QString kind = QString::fromLatin1(widget.metaObject()->className());
  return label == nullptr ? kind : kind + " \"" + label->text() + "\"";
}

bool IsOwn(const QWidget& widget) {
  // The parts that the toolkit puts its own widgets together of.
  if (widget.objectName().startsWith("qt_")) return false;
  const QWidget* parent = widget.parentWidget();
  const bool ofArea = qobject_cast<const QAbstractScrollArea*>(parent) != nullptr ||
                      qobject_cast<const QComboBox*>(parent) != nullptr;
  for (const char* kind : {"QScrollBar", "QHeaderView", "QSizeGrip"}) {
    if (widget.inherits(kind)) return false;
  }
  return !ofArea;
}

/// Whether the widget scrolls into sight where its place does not show it.
bool Scrolls(const QWidget& widget, const QWidget& view) {
  for (const QWidget* above = &widget; above != nullptr && above != &view;
       above = above->parentWidget()) {
    if (qobject_cast<const QScrollArea*>(above) != nullptr) return true;
  }
  return false;
}

QString ReachesOut(const QWidget& widget, const QWidget& view) {
  const bool scrolls = Scrolls(widget, view);
  for (const QWidget* above = widget.parentWidget(); above != nullptr;
       above = above->parentWidget()) {
    QRect place(widget.mapTo(above, QPoint(0, 0)), widget.size());
    // What scrolls must fit in width alone.
    if (scrolls) place.setTop(0), place.setHeight(1);
    if (!above->rect().contains(place)) return NameOf(widget) + " reaches out of " + NameOf(*above);
    if (above == &view) break;
  }
  return {};
}

/// The control that stands over a place of another one, where there is one.
const QWidget* Cover(const QWidget& widget, QWidget& view, QPoint place) {
  const QPoint there = widget.mapTo(&view, place);
  const QWidget* top = view.childAt(there);
  if (top == nullptr || top == &widget || !IsOwn(*top)) return nullptr;
  if (widget.isAncestorOf(top) || top->isAncestorOf(&widget)) return nullptr;
  return top;
}

QString Covered(const QWidget& widget, QWidget& view) {
  if (widget.testAttribute(Qt::WA_TransparentForMouseEvents)) return {};
  // A text that says nothing may lie below one that does.
  const auto* label = qobject_cast<const QLabel*>(&widget);
  if (label != nullptr && label->text().trimmed().isEmpty()) return {};
  const QRect area = widget.rect().adjusted(1, 1, -1, -1);
  for (const QPoint place :
       {area.center(), area.topLeft(), area.topRight(), area.bottomLeft(), area.bottomRight()}) {
    const QWidget* cover = Scrolls(widget, view) ? nullptr : Cover(widget, view, place);
    if (cover != nullptr) return NameOf(widget) + " is covered by " + NameOf(*cover);
  }
  return {};
}

/// The width that there is for the words of a button.
int WordRoom(const QAbstractButton& button) {
  QStyleOptionButton option;
  option.initFrom(&button);
  const bool radio = button.inherits("QRadioButton");
  const bool check = button.inherits("QCheckBox");
  if (!radio && !check) return button.width();
  return button.style()
      ->subElementRect(radio ? QStyle::SE_RadioButtonContents : QStyle::SE_CheckBoxContents,
                       &option, &button)
      .width();
}

bool IsCut(const QWidget& widget) {
  // These cut a long text on purpose, or make it fit.
  if (qobject_cast<const desktop::ElidedLabel*>(&widget) != nullptr) return false;
  if (qobject_cast<const desktop::RunButton*>(&widget) != nullptr) return false;
  if (const auto* line = qobject_cast<const desktop::QuietLine*>(&widget)) {
    const QRect words = line->fontMetrics().boundingRect(
        QRect(0, 0, line->width(), 0), Qt::TextWordWrap | Qt::TextWrapAnywhere, line->text());
    return words.height() > line->height();
  }
  if (const auto* counter = qobject_cast<const desktop::CounterLabel*>(&widget)) {
    return !counter->IsWhole();
  }
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    if (label->text().isEmpty()) return false;
    if (label->wordWrap()) return label->heightForWidth(label->width()) > label->height();
    const QSize words = label->fontMetrics().size(Qt::TextShowMnemonic, label->text());
    return words.width() > label->contentsRect().width() || words.height() > label->height() + 1;
  }
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
    const QSize words = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
    return words.width() > WordRoom(*button) || words.height() > button->height() + 1;
  }
  if (const auto* list = qobject_cast<const QComboBox*>(&widget)) {
    // The toolkit's own list of folders shortens what it paints.
    if (list->window()->inherits("QFileDialog")) return false;
    QStyleOptionComboBox option;
    option.initFrom(list);
    option.subControls = QStyle::SC_ComboBoxEditField;
    const QRect room = list->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                     QStyle::SC_ComboBoxEditField, list);
    return list->fontMetrics().horizontalAdvance(list->currentText()) > room.width() ||
           list->fontMetrics().height() > list->height();
  }
  const auto* field = qobject_cast<const QLineEdit*>(&widget);
  return field != nullptr && field->fontMetrics().height() > field->height();
}

QStringList CutCells(const QTableWidget& table) {
  QStringList cut;
  for (int row = 0; row < table.rowCount(); ++row) {
    for (int column = 0; column < table.columnCount(); ++column) {
      const QString text = table.item(row, column)->text();
      if (table.fontMetrics().horizontalAdvance(text) + 2 > table.columnWidth(column)) {
        cut << "the cell \"" + text + "\" is cut";
      }
    }
  }
  return cut;
}

}  // namespace

QStringList Misfits(QWidget& view) {
  QStringList misfits;
  for (QWidget* widget : view.findChildren<QWidget*>()) {
    if (!widget->isVisible() || widget->isWindow() || !IsOwn(*widget)) continue;
    misfits << ReachesOut(*widget, view) << Covered(*widget, view);
    misfits << CutPaint(*widget);
    if (IsCut(*widget)) misfits << "the text of " + NameOf(*widget) + " is cut";
    if (const auto* table = qobject_cast<const QTableWidget*>(widget)) misfits << CutCells(*table);
  }
  misfits.removeAll(QString());
  return misfits + MissedEdges(view);
}

}  // namespace tour
