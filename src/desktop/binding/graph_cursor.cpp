#include "desktop/binding/graph_cursor.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <vector>

#include "base/shown_text.h"
#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/look/text.h"

namespace desktop {

namespace {

/// In pixels of the smallest window.
constexpr int CardGap = 12;
constexpr int LineWidth = 1;
constexpr int PageOfPoints = 10;

QString ShownName(const platform::PointReading::Value& value) {
  return ToQt(platform::Escaped(value.Name));
}

}  // namespace

GraphCursor::GraphCursor(QCustomPlot& view, platform::CWGraph& graph, platform::Guard& guard)
    : QObject(&view),
      view_(view),
      graph_(graph),
      guard_(guard),
      line_(new QWidget(&view)),
      card_(new ReadOutCard(&view)) {
  line_->setObjectName(QStringLiteral("CursorLine"));
  line_->setAttribute(Qt::WA_TransparentForMouseEvents);
  QPalette colours = line_->palette();
  colours.setColor(QPalette::Window, look::Accent);
  line_->setPalette(colours);
  line_->setAutoFillBackground(true);
  line_->hide();
  card_->setObjectName(QStringLiteral("ReadOut"));
  card_->setAccessibleName(QStringLiteral("values at the cursor"));
  view_.setFocusPolicy(Qt::StrongFocus);
  view_.installEventFilter(this);
  graph_.Readable.Observe([this] {
    if (!graph_.Readable) Hide();
  });
  connect(&view_, &QCustomPlot::afterReplot, this, &GraphCursor::ReadAnew);
}

bool GraphCursor::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseMove:
      TakeMouse(*static_cast<QMouseEvent*>(event));
      break;
    case QEvent::KeyPress:
      if (TakeKey(*static_cast<QKeyEvent*>(event))) return true;
      break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Leave:
    case QEvent::FocusOut:
    case QEvent::Hide:
      Hide();
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

void GraphCursor::TakeMouse(const QMouseEvent& event) {
  const QPoint place = event.position().toPoint();
  if (event.buttons() == Qt::NoButton && view_.axisRect()->rect().contains(place)) {
    ReadNear(view_.xAxis->pixelToCoord(place.x()));
  } else {
    Hide();
  }
}

bool GraphCursor::TakeKey(const QKeyEvent& event) {
  if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier || !graph_.Readable) return false;
  switch (event.key()) {
    case Qt::Key_Left:
      Step(-1);
      return true;
    case Qt::Key_Right:
      Step(1);
      return true;
    case Qt::Key_PageUp:
      Step(-PageOfPoints);
      return true;
    case Qt::Key_PageDown:
      Step(PageOfPoints);
      return true;
    case Qt::Key_Escape:
      if (!reading_) return false;
      Hide();
      return true;
    default:
      return false;
  }
}

void GraphCursor::Step(int points) {
  const QCPRange shown = view_.xAxis->range();
  // The first key brings the cursor up in the middle of what shows.
  const double wanted = reading_ ? reading_->Point + points : shown.center();
  const double first = std::ceil(shown.lower);
  ReadNear(std::clamp(wanted, first, std::max(first, std::floor(shown.upper))));
}

void GraphCursor::ReadNear(double x) {
  if (!graph_.Readable) return;
  guard_([this, x] { reading_ = graph_.ReadPoint(x); });
  if (!reading_ || reading_->Values.empty() || !view_.xAxis->range().contains(reading_->Point)) {
    Hide();
    return;
  }
  Tell();
  Place();
}

void GraphCursor::ReadAnew() {
  if (reading_) ReadNear(reading_->Point);
}

void GraphCursor::Tell() {
  std::vector<ReadOutCard::Row> rows;
  QStringList words;
  for (const platform::PointReading::Value& value : reading_->Values) {
    rows.push_back(
        {look::ColourOf(graph_.Plots[value.Plot].LineColor), ShownName(value), ToQt(value.Text)});
    words << ShownName(value) + QLatin1Char(' ') + ToQt(value.Text);
  }
  card_->Tell(ToQt(reading_->Place), rows);
  const QString description =
      ToQt(reading_->Place) + QStringLiteral(": ") + words.join(QStringLiteral(", "));
  if (description != view_.accessibleDescription()) view_.setAccessibleDescription(description);
}

void GraphCursor::Place() {
  const QRect room = view_.axisRect()->rect();
  const int width = look::Scaled(LineWidth);
  const int at = static_cast<int>(std::lround(view_.xAxis->coordToPixel(reading_->Point)));
  line_->setGeometry(at - width / 2, room.top(), width, room.height());
  const int gap = look::Scaled(CardGap);
  const int behind = at + gap;
  const bool fits = behind + card_->width() <= room.right();
  const int before = std::max(room.left(), at - gap - card_->width());
  card_->move(fits ? behind : before, room.top() + gap);
  for (QWidget* part : {line_, static_cast<QWidget*>(card_)}) {
    part->show();
    part->raise();
  }
}

void GraphCursor::Hide() {
  reading_.reset();
  line_->hide();
  card_->hide();
  if (!view_.accessibleDescription().isEmpty()) view_.setAccessibleDescription(QString());
}

}  // namespace desktop
