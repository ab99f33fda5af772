#include "desktop/widgets/tab_bar.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QSignalBlocker>

#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/look/text.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr int LeastWidth = 112;
constexpr int SidePadding = 22;
constexpr int Top = 7;
constexpr int SideGap = 2;
/// The layout rules have views begin 800 twips below the window's top, whatever its size. The
/// row's words grow with the window, the row itself to there.
constexpr int LargestHeight = 48;
constexpr double TabCorner = 7;
constexpr double FocusInset = 8;
constexpr double MarkHeight = 3;

/// A tab that stands on the lower edge of its area.
QPainterPath TabShape(const QRectF& area, double corner) {
  QPainterPath shape(area.bottomLeft());
  shape.lineTo(area.left(), area.top() + corner);
  shape.quadTo(area.topLeft(), area.topLeft() + QPointF(corner, 0));
  shape.lineTo(area.right() - corner, area.top());
  shape.quadTo(area.topRight(), area.topRight() + QPointF(0, corner));
  shape.lineTo(area.bottomRight());
  return shape;
}

}  // namespace

TabBar::TabBar(QWidget* parent) : QTabBar(parent) {
  setDrawBase(false);
  setExpanding(false);
  setUsesScrollButtons(false);
  setElideMode(Qt::ElideNone);
  setMouseTracking(true);
  connect(this, &QTabBar::currentChanged, this, &TabBar::Report);
}

int TabBar::Add(const QString& caption) {
  captions_ << caption;
  return addTab(caption);
}

void TabBar::ShowSelected(int index) {
  const QSignalBlocker quiet(this);
  setCurrentIndex(index);
  update();
}

void TabBar::Choose(int index) {
  if (index == currentIndex()) {
    Report(index);
  } else {
    setCurrentIndex(index);
  }
}

void TabBar::LeaveKeys(const QList<QKeySequence>& keys) {
  for (int index = 0; index < count(); ++index) {
    const QString& caption = captions_[index];
    const bool left = keys.contains(QKeySequence::mnemonic(caption));
    const QString text = left ? PlainCaption(FromQt(caption)) : caption;
    if (text != tabText(index)) setTabText(index, text);
  }
}

void TabBar::Report(int index) {
  ++reports_;
  if (Chosen) Chosen(index);
}

bool TabBar::event(QEvent* event) {
  const int before = reports_;
  const bool handled = QTabBar::event(event);
  // A tab's own key pressed again.
  if (event->type() == QEvent::Shortcut && handled && reports_ == before) Report(currentIndex());
  return handled;
}

void TabBar::mousePressEvent(QMouseEvent* event) {
  const bool again =
      event->button() == Qt::LeftButton && tabAt(event->position().toPoint()) == currentIndex();
  QTabBar::mousePressEvent(event);
  if (again) Report(currentIndex());
}

void TabBar::keyPressEvent(QKeyEvent* event) {
  const bool towardsExit = event->key() == Qt::Key_Right || event->key() == Qt::Key_End;
  if (towardsExit && currentIndex() >= count() - 2) return;
  if (event->key() == Qt::Key_End) {
    setCurrentIndex(count() - 2);
    return;
  }
  QTabBar::keyPressEvent(event);
}

void TabBar::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

QSize TabBar::tabSizeHint(int index) const {
  QFont bold = font();
  bold.setBold(true);
  const int text = QFontMetrics(bold).size(Qt::TextShowMnemonic, captions_[index]).width();
  return {std::max(look::Scaled(LeastWidth), text + 2 * look::Scaled(SidePadding)),
          std::min(look::Scaled(DesignHeight), LargestHeight)};
}

void TabBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (int index = 0; index < count(); ++index) DrawTab(painter, index);
}

void TabBar::DrawTab(QPainter& painter, int index) const {
  const bool selected = index == currentIndex();
  const bool hover = tabRect(index).contains(mapFromGlobal(QCursor::pos()));
  const int gap = look::Scaled(SideGap);
  // The first one begins at the window's edge, where the strip is white.
  const QRectF area = QRectF(tabRect(index)).adjusted(index == 0 ? 0 : gap, Top, -gap, 0);
  const double corner = TabCorner * look::Scale();
  QFont words = font();
  words.setBold(selected);
  painter.setFont(words);
  if (selected || hover) {
    QColor ground = look::Page;
    if (!selected) ground.setAlphaF(0.4F);
    painter.setPen(Qt::NoPen);
    painter.fillPath(TabShape(area, corner), ground);
  }
  if (selected) {
    painter.setBrush(look::Accent);
    const double mark = look::Scaled(MarkHeight);
    painter.drawRoundedRect(
        QRectF(area.left() + corner, area.top(), area.width() - 2 * corner, mark), mark / 2,
        mark / 2);
  }
  if (selected && hasFocus()) {
    painter.setPen(QPen(look::Accent, look::Painted(1.5)));
    painter.setBrush(Qt::NoBrush);
    const double side = look::Painted(FocusInset);
    painter.drawRoundedRect(area.adjusted(side, side, -side, -side * 3 / 4), look::Painted(3),
                            look::Painted(3));
  }
  painter.setPen(look::Ink);
  painter.drawText(area.adjusted(0, 2, 0, 0), Qt::AlignCenter | Qt::TextShowMnemonic,
                   captions_[index]);
}

}  // namespace desktop
