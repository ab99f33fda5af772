#include "edge_check.h"

#include <QAbstractScrollArea>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <cstdlib>

#include "desktop/look/scale.h"
#include "desktop/widgets/card.h"
#include "desktop/widgets/reading_field.h"
#include "desktop/widgets/run_button.h"

namespace tour {

namespace {

/// Edges closer than this, in pixels of the smallest window, are meant to be one.
constexpr int NearMiss = 4;

struct Framed {
  QString Name;
  QRect Place;
  const QWidget* Parent;
  QByteArray Kind;
};

/// Whether the edges of the widget are seen.
bool HasEdges(const QWidget& widget) {
  return qobject_cast<const desktop::Ground*>(&widget) != nullptr ||
         qobject_cast<const QLineEdit*>(&widget) != nullptr ||
         qobject_cast<const QComboBox*>(&widget) != nullptr ||
         qobject_cast<const QPushButton*>(&widget) != nullptr ||
         qobject_cast<const desktop::RunButton*>(&widget) != nullptr ||
         qobject_cast<const desktop::ReadingField*>(&widget) != nullptr ||
         (qobject_cast<const QAbstractScrollArea*>(&widget) != nullptr &&
          qobject_cast<const QScrollArea*>(&widget) == nullptr);
}

/// The parts that the toolkit puts its own lists, fields and dialogs together of.
bool IsToolkits(const QWidget& widget) {
  for (const QWidget* above = widget.parentWidget(); above != nullptr && !above->isWindow();
       above = above->parentWidget()) {
    if (qobject_cast<const QComboBox*>(above) != nullptr) return true;
    if (above->objectName().startsWith("qt_") && !above->objectName().endsWith("viewport"))
      return true;
  }
  return widget.window()->inherits("QFileDialog") || widget.window()->inherits("QMessageBox");
}

QList<Framed> FramedIn(QWidget& view) {
  QList<Framed> framed;
  for (const QWidget* widget : view.findChildren<QWidget*>()) {
    if (!widget->isVisible() || !HasEdges(*widget) || IsToolkits(*widget)) continue;
    const QString name =
        widget->objectName().isEmpty() ? widget->metaObject()->className() : widget->objectName();
    framed.append({name, QRect(widget->mapTo(&view, QPoint(0, 0)), widget->size()),
                   widget->parentWidget(), widget->metaObject()->className()});
  }
  return framed;
}

bool Missed(int one, int other) {
  return one != other && std::abs(one - other) < desktop::look::Scaled(NearMiss);
}

bool Same(int one, int other) {
  return std::abs(one - other) < desktop::look::Scaled(NearMiss);
}

QString Told(const Framed& one, const Framed& other, const QString& edge, int distance) {
  return QStringLiteral("%1 and %2 miss each other's %3 edge by %4")
      .arg(one.Name, other.Name, edge)
      .arg(std::abs(distance));
}

/// Whether the two belong to one group, or are of one kind on different groups.
bool BelongTogether(const Framed& one, const Framed& other) {
  return one.Parent == other.Parent || one.Kind == other.Kind;
}

QStringList Missed(const Framed& one, const Framed& other) {
  QStringList missed;
  if (!BelongTogether(one, other)) return missed;
  const QRect& a = one.Place;
  const QRect& b = other.Place;
  const bool beside = a.top() <= b.bottom() && b.top() <= a.bottom();
  const bool inRow = beside && one.Parent == other.Parent;
  if (!beside && Missed(a.left(), b.left()))
    missed << Told(one, other, "left", a.left() - b.left());
  if (!beside && Missed(a.right(), b.right()))
    missed << Told(one, other, "right", a.right() - b.right());
  if (inRow && Same(a.height(), b.height()) && Missed(a.top(), b.top()))
    missed << Told(one, other, "upper", a.top() - b.top());
  if (inRow && Same(a.top(), b.top()) && Missed(a.bottom(), b.bottom()))
    missed << Told(one, other, "lower", a.bottom() - b.bottom());
  return missed;
}

}  // namespace

QStringList MissedEdges(QWidget& view) {
  QStringList missed;
  const QList<Framed> framed = FramedIn(view);
  for (qsizetype i = 0; i < framed.size(); ++i) {
    for (qsizetype k = i + 1; k < framed.size(); ++k) missed << Missed(framed[i], framed[k]);
  }
  return missed;
}

}  // namespace tour
