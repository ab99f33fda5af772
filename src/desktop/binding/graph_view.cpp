#include "desktop/binding/graph_view.h"

#include <QApplication>
#include <QPicture>
#include <algorithm>

#include "base/raised.h"
#include "desktop/binding/axis_look.h"
#include "desktop/binding/graph_cursor.h"
#include "desktop/binding/time_ticker.h"
#include "desktop/look/look.h"
#include "desktop/look/picture.h"
#include "desktop/look/text.h"

namespace desktop {

namespace {

// A light paper that darkens a little to its foot. Colours that do not stand out from it are drawn
// on an edge; the darkest tone decides.
const QColor PaperLight(255, 255, 255);
const QColor PaperDark(238, 244, 251);
constexpr std::int16_t NoLine = 0;
constexpr std::int16_t NoPoints = 0;
/// In pixels of the smallest window, as the axes' distances are.
constexpr double MarkerSize = 5;
constexpr double FocusWidth = 1.5;
/// What is left free above and below the curves, as a share of their height.
constexpr double Headroom = 0.05;
constexpr double InitialSamples = 399;
constexpr std::size_t SmoothSamples = 4000;
/// The smallest side of a rectangle to zoom into, in pixels.
constexpr int SmallestZoom = 5;
/// Half the height of the range that a flat curve stands in.
constexpr double FlatReach = 1;
/// Half the length of an axis that holds a single point.
constexpr double PointReach = 0.5;
/// A block is put on the graph in many steps, with a pump among them, and drawn by the last one.
/// What is to be drawn soon waits for that long enough.
constexpr int DrawMs = 30;
// On paper the graph has its own size, whatever the window's is: it is drawn as lines and texts in
// a unit in which a text of the usual size has 9 points.
constexpr double PaperMillimetres = 180;
constexpr double PaperTextPoints = 9;
constexpr double MillimetresOfUnit = PaperTextPoints / 72 * 25.4 / look::TextSize;
constexpr double PaperUnits = PaperMillimetres / MillimetresOfUnit;
/// Of a line of two pixels, which curves have.
constexpr double PaperLineMillimetres = 0.35;
constexpr double PaperStrokes = PaperLineMillimetres / 2 / MillimetresOfUnit;

}  // namespace

GraphView::GraphView(platform::CWGraph& graph, platform::Guard& guard, QWidget* parent)
    : QCustomPlot(parent), graph_(graph), guard_(guard) {
  setBackground(QBrush(look::Page));
  setPlottingHint(QCP::phFastPolylines);
  xAxis->setRange(0, InitialSamples);
  yAxis->setRange(-1, 1);
  // The lines of the second scale stand where the time is whole.
  xAxis2->grid()->setVisible(true);
  axisRect()->setRangeDrag(Qt::Horizontal | Qt::Vertical);
  axisRect()->setRangeZoom(Qt::Horizontal | Qt::Vertical);
  for (CasedCurve*& curve : curves_) curve = new CasedCurve(xAxis, yAxis);
  drawing_.setSingleShot(true);
  drawing_.setInterval(DrawMs);
  drawing_.callOnTimeout(this, [this] { DrawNow(rpRefreshHint); });
  FollowPlots();
  FollowGraph();
  TakeMouse();
  ShowAll();
  TakeScale();
  if (graph_.ReadPoint) new GraphCursor(*this, graph_, guard_);
}

void GraphView::resizeEvent(QResizeEvent* event) {
  // A page that was not laid out yet leaves no room, and nothing can be painted on nothing.
  if (!event->size().isEmpty()) QCustomPlot::resizeEvent(event);
}

void GraphView::paintEvent(QPaintEvent* event) {
  QCustomPlot::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double width = FocusWidth * look::Scale();
  painter.setPen(QPen(look::Accent, width));
  painter.drawRect(QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2));
}

void GraphView::showEvent(QShowEvent* event) {
  QCustomPlot::showEvent(event);
  DrawNow(rpQueuedRefresh);
}

void GraphView::hideEvent(QHideEvent* event) {
  QCustomPlot::hideEvent(event);
  // Pictures of its size, which a page that is not in front would keep.
  mPaintBuffers.clear();
}

void GraphView::FollowPlots() {
  for (std::size_t i = 0; i < curves_.size(); ++i) {
    platform::Plot& plot = graph_.Plots[i];
    plot.Y.Observe([this, i] { ShowCurve(i); });
    const auto style = [this, i] {
      ShowStyle(i, look::Scale());
      DrawSoon();
    };
    plot.Visible.Observe(style);
    plot.LineColor.Observe(style);
    plot.PointColor.Observe(style);
    plot.LineStyle.Observe(style);
    plot.PointStyle.Observe(style);
    plot.LineWidth.Observe(style);
  }
}

void GraphView::FollowAxis(platform::Axis& axis, QCPAxis& shown) {
  const auto caption = [this, &axis, &shown] {
    shown.setLabel(ToQt(axis.Caption));
    DrawSoon();
  };
  caption();
  axis.Caption.Observe(caption);
  const auto ends = [this, &axis, &shown] {
    if (telling_) return;
    QCPRange range(axis.Minimum, axis.Maximum);
    // A course of one point alone leaves its axis no length.
    if (axis.Maximum <= axis.Minimum)
      range = QCPRange(axis.Minimum - PointReach, axis.Minimum + PointReach);
    // The program's own ends stand: what is shown meanwhile is none of them.
    {
      const platform::Raised telling(telling_);
      shown.setRange(range);
    }
    DrawSoon();
  };
  axis.Minimum.Observe(ends);
  axis.Maximum.Observe(ends);
}

void GraphView::FollowTime() {
  xAxis2->setTicker(QSharedPointer<TimeTicker>::create());
  const auto follow = [this] {
    const double seconds = graph_.SecondsPerPoint;
    xAxis2->setVisible(seconds > 0);
    xAxis2->setRange(xAxis->range() * seconds);
    DrawSoon();
  };
  graph_.SecondsPerPoint.Observe(follow);
  connect(xAxis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this, follow);
  follow();
}

void GraphView::FollowGraph() {
  FollowAxis(graph_.XAxis, *xAxis);
  FollowAxis(graph_.YAxis, *yAxis);
  FollowTime();
  graph_.XAxis.ScaleNow = [this] {
    ScaleX();
    DrawSoon();
  };
  graph_.YAxis.ScaleNow = [this] {
    ScaleY();
    DrawSoon();
  };
  TellRange(graph_.XAxis, *xAxis);
  TellRange(graph_.YAxis, *yAxis);
  graph_.Draw = [this] { return Draw(); };
  graph_.TrackMode.Observe([this] { ShowTrackMode(); });
  graph_.ScreenLook.Observe([this] { ShowBackground(); });
  graph_.Refresh = [this] {
    if (graph_.XAxis.AutoScale) ScaleX();
    if (graph_.YAxis.AutoScale) ScaleY();
    drawing_.stop();
    DrawNow(rpImmediateRefresh);
  };
}

void GraphView::TellRange(platform::Axis& control, const QCPAxis& axis) {
  const auto tell = [this, &control](const QCPRange& range) {
    if (telling_) return;
    const platform::Raised telling(telling_);
    control.Minimum = range.lower;
    control.Maximum = range.upper;
  };
  connect(&axis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this, tell);
  tell(axis.range());
}

platform::Picture GraphView::Draw() {
  if (size().isEmpty()) return {};
  if (!graph_.ScreenLook) return DrawForPaper();
  return PictureOf(toPixmap(width(), height(), devicePixelRatioF()).toImage());
}

platform::Picture GraphView::DrawForPaper() {
  const QSize paper = QSizeF(PaperUnits, PaperUnits * height() / width()).toSize();
  QFont texts = look::TextFont(look::TextSize);
  texts.setHintingPreference(QFont::PreferNoHinting);
  QPicture drawing;
  Dress(texts, 1, PaperStrokes);
  {
    QCPPainter painter(&drawing);
    for (const auto mode :
         {QCPPainter::pmVectorized, QCPPainter::pmNoCaching, QCPPainter::pmNonCosmetic}) {
      painter.setMode(mode);
    }
    toPainter(&painter, paper.width(), paper.height());
  }
  DressForScreen();
  return PictureOf(drawing, paper);
}

void GraphView::Dress(const QFont& texts, double lengths, double strokes) {
  for (QCPAxis* axis : {xAxis, xAxis2, yAxis}) DressAxis(*axis, {texts, lengths, strokes});
  for (std::size_t i = 0; i < curves_.size(); ++i) ShowStyle(i, strokes);
}

void GraphView::DressForScreen() {
  Dress(QApplication::font(), look::Scale(), look::Scale());
}

void GraphView::DrawNow(RefreshPriority priority) {
  if (isVisible()) replot(priority);
}

void GraphView::DrawSoon() {
  if (!drawing_.isActive()) drawing_.start();
}

void GraphView::TakeMouse() {
  connect(this, &QCustomPlot::mousePress, this, [this](QMouseEvent* event) {
    const std::int16_t button = event->button() == Qt::RightButton ? platform::mouse_button::Right
                                : event->button() == Qt::LeftButton
                                    ? platform::mouse_button::Left
                                    : platform::mouse_button::Middle;
    guard_([this, button] { graph_.MouseDown(button); });
  });
  connect(this, &QCustomPlot::mouseDoubleClick, this, [this](QMouseEvent* event) {
    // The second of two quick presses of the right button is a press like the first.
    if (event->button() == Qt::RightButton)
      guard_([this] { graph_.MouseDown(platform::mouse_button::Right); });
    if (event->button() == Qt::LeftButton) guard_([this] { graph_.DblClick(); });
  });
  connect(selectionRect(), &QCPSelectionRect::accepted, this,
          [this](const QRect& rect, QMouseEvent* event) { ZoomInto(rect, event->button()); });
}

void GraphView::ZoomInto(const QRect& drag, Qt::MouseButton button) {
  // A rectangle may be drawn from any of its corners; a click without a drag is none.
  const QRect rect = drag.normalized();
  const bool drawn = rect.width() >= SmallestZoom && rect.height() >= SmallestZoom;
  if (button != Qt::LeftButton || !drawn) return;
  axisRect()->zoom(QRectF(rect));
  guard_([this] { graph_.ZoomFinished(); });
  DrawSoon();
}

void GraphView::ShowAll() {
  for (std::size_t i = 0; i < curves_.size(); ++i) {
    ShowStyle(i, look::Scale());
    ShowCurve(i);
  }
  ShowTrackMode();
  ShowBackground();
}

void GraphView::ShowCurve(std::size_t plot) {
  const std::vector<double>& y = graph_.Plots[plot].Y;
  QVector<QCPGraphData> points(static_cast<qsizetype>(y.size()));
  for (std::size_t i = 0; i < y.size(); ++i) {
    points[static_cast<qsizetype>(i)] = QCPGraphData(static_cast<double>(i), y[i]);
  }
  curves_[plot]->data()->set(points, true);
  // Where many samples share a pixel, smooth edges would cost more than they show.
  curves_[plot]->setAntialiased(y.size() <= SmoothSamples);
}

void GraphView::ShowStyle(std::size_t plot, double strokes) {
  const platform::Plot& state = graph_.Plots[plot];
  CasedCurve& curve = *curves_[plot];
  curve.setVisible(state.Visible);
  curve.setPen(QPen(look::ColourOf(state.LineColor), state.LineWidth * strokes));
  curve.setLineStyle(state.LineStyle == NoLine ? QCPGraph::lsNone : QCPGraph::lsLine);
  if (state.PointStyle == NoPoints) {
    curve.HideMarkers();
  } else {
    curve.ShowMarkers(look::ColourOf(state.PointColor), MarkerSize * strokes, strokes);
  }
}

void GraphView::TakeScale() {
  DressForScreen();
  DrawSoon();
}

void GraphView::ShowTrackMode() {
  const bool zoom = graph_.TrackMode == platform::CWGraph::ZoomMode;
  setInteractions(zoom ? QCP::Interactions(QCP::iRangeZoom) : QCP::iRangeDrag | QCP::iRangeZoom);
  setSelectionRectMode(zoom ? QCP::srmCustom : QCP::srmNone);
  setCursor(zoom ? Qt::CrossCursor : Qt::OpenHandCursor);
}

void GraphView::ShowBackground() {
  QLinearGradient paper(0, 0, 0, 1);
  paper.setCoordinateMode(QGradient::ObjectMode);
  paper.setColorAt(0, PaperLight);
  paper.setColorAt(1, PaperDark);
  setBackground(graph_.ScreenLook ? look::Page : QColor(Qt::white));
  axisRect()->setBackground(graph_.ScreenLook ? QBrush(paper) : QBrush(Qt::white));
  for (CasedCurve* curve : curves_) curve->SetGround(graph_.ScreenLook ? PaperDark : Qt::white);
  DrawSoon();
}

std::optional<QCPRange> GraphView::VisibleValues() const {
  std::optional<QCPRange> values;
  for (const CasedCurve* curve : curves_) {
    bool found = false;
    const QCPRange range = curve->getValueRange(found);
    if (!found || !curve->visible()) continue;
    if (values) {
      values->expand(range);
    } else {
      values = range;
    }
  }
  return values;
}

void GraphView::ScaleX() {
  if (!VisibleValues()) return;
  xAxis->rescale(true);
}

void GraphView::ScaleY() {
  std::optional<QCPRange> values = VisibleValues();
  if (!values) return;
  if (values->size() <= 0) {
    values = QCPRange(values->center() - FlatReach, values->center() + FlatReach);
  }
  yAxis->setRange(*values);
  yAxis->scaleRange(1 + 2 * Headroom);
}

}  // namespace desktop
