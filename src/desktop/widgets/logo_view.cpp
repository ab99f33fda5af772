#include "desktop/widgets/logo_view.h"

#include <QEvent>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>

#include "desktop/look/twips.h"

namespace desktop {

namespace {

constexpr int Clearance = 6;

QSvgRenderer& Logo() {
  static QSvgRenderer logo(QStringLiteral(":/vornik/logo.svg"));
  return logo;
}

}  // namespace

LogoView::LogoView(platform::PictureBox& control, int width, QPoint origin, QWidget* parent)
    : QWidget(parent), control_(control), origin_(origin) {
  const QSize natural = Logo().defaultSize();
  const int height = natural.isEmpty() ? width / 5 : width * natural.height() / natural.width();
  resize(width, height);
  control_.Width = twips::Of(width);
  control_.Height = twips::Of(height);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAccessibleName(QStringLiteral("Vornik"));
  control_.Left.Observe([this] { Place(); });
  control_.Top.Observe([this] { Place(); });
  parent->installEventFilter(this);
}

void LogoView::Place() {
  const QPoint place = QPoint(twips::Pixels(control_.Left), twips::Pixels(control_.Top)) - origin_;
  const int lowest = parentWidget()->height() - height() - Clearance;
  raised_ = std::max(0, place.y() - lowest);
  move(place.x(), place.y() - raised_);
}

bool LogoView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) Place();
  return QWidget::eventFilter(watched, event);
}

void LogoView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  Logo().render(&painter, rect());
}

}  // namespace desktop
