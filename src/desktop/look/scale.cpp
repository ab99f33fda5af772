#include "desktop/look/scale.h"

#include <QApplication>
#include <QFrame>
#include <QGridLayout>
#include <QLayout>
#include <QVariant>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "desktop/look/instrument_style.h"
#include "desktop/look/look.h"

namespace desktop::look {

namespace {

constexpr double LargestScale = 2;
/// Where a widget or a layout keeps what the design gave it.
constexpr const char* Design = "design";
constexpr const char* OwnFont = "ownFont";

InstrumentStyle* Style() {
  return qobject_cast<InstrumentStyle*>(QApplication::style());
}

/// The numbers of the design of an object, in one order for reading and for writing.
using Numbers = QVariantList;

/// The numbers that an object had when it was first met.
template <typename Read>
Numbers DesignOf(QObject& object, Read read) {
  const QVariant known = object.property(Design);
  if (known.isValid()) return known.toList();
  Numbers numbers = read();
  object.setProperty(Design, numbers);
  return numbers;
}

int ScaledLimit(const QVariant& design) {
  const int pixels = design.toInt();
  return pixels >= QWIDGETSIZE_MAX ? QWIDGETSIZE_MAX : Scaled(pixels);
}

bool HasOwnSize(const QWidget& widget) {
  return widget.testAttribute(Qt::WA_SetFont) &&
         (widget.font().resolveMask() & QFont::SizeResolved) != 0;
}

void ScaleWidget(QWidget& widget) {
  const bool ownFont = HasOwnSize(widget) && !widget.property(OwnFont).toBool();
  const Numbers design = DesignOf(widget, [&] {
    const QMargins margins = widget.contentsMargins();
    return Numbers{widget.minimumWidth(),
                   widget.minimumHeight(),
                   widget.maximumWidth(),
                   widget.maximumHeight(),
                   ownFont ? widget.font().pixelSize() : 0,
                   margins.left(),
                   margins.top(),
                   margins.right(),
                   margins.bottom()};
  });
  widget.setMinimumSize(Scaled(design[0].toInt()), Scaled(design[1].toInt()));
  widget.setMaximumSize(ScaledLimit(design[2]), ScaledLimit(design[3]));
  if (design[4].toInt() > 0) {
    QFont font = widget.font();
    font.setPixelSize(Scaled(design[4].toInt()));
    widget.setFont(font);
  }
  // The width of an edge in the style's hands is asked for once.
  auto* frame = qobject_cast<QFrame*>(&widget);
  if (frame != nullptr && frame->frameShape() == QFrame::StyledPanel) {
    frame->setFrameStyle(frame->frameStyle());
  }
  // The margins of a widget with a layout are those of its layout.
  if (widget.layout() != nullptr) return;
  widget.setContentsMargins(Scaled(design[5].toInt()), Scaled(design[6].toInt()),
                            Scaled(design[7].toInt()), Scaled(design[8].toInt()));
}

/// Spacings of a layout; a grid has one for each direction, and least sizes of its cells.
Numbers ReadLayout(QLayout& layout) {
  const QMargins margins = layout.contentsMargins();
  Numbers numbers{margins.left(), margins.top(), margins.right(), margins.bottom()};
  if (auto* grid = qobject_cast<QGridLayout*>(&layout)) {
    numbers << grid->horizontalSpacing() << grid->verticalSpacing();
    for (int i = 0; i < grid->columnCount(); ++i) numbers << grid->columnMinimumWidth(i);
    for (int i = 0; i < grid->rowCount(); ++i) numbers << grid->rowMinimumHeight(i);
  } else {
    numbers << layout.spacing();
  }
  for (int i = 0; i < layout.count(); ++i) {
    if (const QSpacerItem* gap = layout.itemAt(i)->spacerItem()) {
      numbers << gap->sizeHint().width() << gap->sizeHint().height();
    }
  }
  return numbers;
}

void ScaleLayout(QLayout& layout) {
  const Numbers design = DesignOf(layout, [&] { return ReadLayout(layout); });
  qsizetype at = 0;
  const auto next = [&] { return Scaled(design.value(at++).toInt()); };
  const int left = next();
  const int top = next();
  const int right = next();
  layout.setContentsMargins(left, top, right, next());
  if (auto* grid = qobject_cast<QGridLayout*>(&layout)) {
    grid->setHorizontalSpacing(next());
    grid->setVerticalSpacing(next());
    for (int i = 0; i < grid->columnCount(); ++i) grid->setColumnMinimumWidth(i, next());
    for (int i = 0; i < grid->rowCount(); ++i) grid->setRowMinimumHeight(i, next());
  } else {
    layout.setSpacing(next());
  }
  for (int i = 0; i < layout.count(); ++i) {
    if (QSpacerItem* gap = layout.itemAt(i)->spacerItem()) {
      const int width = next();
      const QSizePolicy policy = gap->sizePolicy();
      gap->changeSize(width, next(), policy.horizontalPolicy(), policy.verticalPolicy());
    }
  }
  layout.invalidate();
}

bool IsOfWindow(const QWidget& widget, const QWidget& root) {
  return widget.window() == root.window();
}

QList<QWidget*> WidgetsOf(const QWidget& root) {
  QList<QWidget*> widgets = root.findChildren<QWidget*>();
  widgets.removeIf([&root](const QWidget* widget) { return !IsOfWindow(*widget, root); });
  return widgets;
}

}  // namespace

double Scale() {
  const InstrumentStyle* style = Style();
  return style == nullptr ? 1 : style->Scale();
}

int Scaled(double pixels) {
  return static_cast<int>(std::lround(pixels * Scale()));
}

double Painted(double pixels) {
  return pixels * Scale();
}

int LineWidth(double pixels) {
  return std::max(1, Scaled(pixels));
}

double ScaleFor(QSize window) {
  const double ratio = std::min(window.width() / DesignWidth, window.height() / DesignHeight);
  return std::floor(std::clamp(ratio, 1.0, LargestScale) * TextSize) / TextSize;
}

void SetScale(double scale) {
  InstrumentStyle* style = Style();
  if (style == nullptr || scale == style->Scale()) return;
  style->SetScale(scale);
  QApplication::setFont(TextFont(Scaled(TextSize)));
}

void ScaleTree(QWidget& root) {
  // The program's font reaches widgets with the next turn of the event loop, their window's at
  // once.
  root.setFont(QApplication::font());
  for (auto* layout : root.findChildren<QLayout*>()) {
    const QWidget* owner = layout->parentWidget();
    if (owner != nullptr && IsOfWindow(*owner, root)) ScaleLayout(*layout);
  }
  const QList<QWidget*> widgets = WidgetsOf(root);
  for (QWidget* widget : widgets) ScaleWidget(*widget);
  // Those who measure their texts do it when all fonts are set.
  for (QWidget* widget : widgets) {
    auto* scalable = dynamic_cast<Scalable*>(widget);
    if (scalable != nullptr) scalable->TakeScale();
  }
  for (QWidget* widget : widgets) widget->updateGeometry();
}

void KeepFont(QWidget& widget) {
  widget.setProperty(OwnFont, true);
}

}  // namespace desktop::look
