#include "desktop/widgets/logo_view.h"

#include <QEvent>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>

#include "desktop/look/places.h"
#include "desktop/look/twips.h"
#include "desktop/widgets/announced.h"

namespace desktop {

namespace {

/// In pixels of the smallest window.
constexpr int Clearance = 6;

QSvgRenderer& Logo() {
  static QSvgRenderer logo(QStringLiteral(":/vornik/logo.svg"));
  return logo;
}

}  // namespace

LogoView::LogoView(platform::PictureBox& control, int width, From from, QWidget* parent)
    : QWidget(parent), control_(control), width_(width), from_(from) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  Announce(*this, QAccessible::Graphic, QStringLiteral("Vornik"));
  TakeScale();
  control_.Left.Observe([this] { Place(); });
  control_.Top.Observe([this] { Place(); });
  parent->installEventFilter(this);
}

void LogoView::TakeScale() {
  const QSize natural = Logo().defaultSize();
  const int width = look::Scaled(width_);
  const int height = natural.isEmpty() ? width / 5 : width * natural.height() / natural.width();
  resize(width, height);
  control_.Width = twips::Of(width);
  control_.Height = twips::Of(height);
}

QRect LogoView::PlaceOf(const platform::PictureBox& control, const QWidget& page) {
  QRect place = PlaceOnPage(control, page);
  place.moveTop(std::min(place.top(), page.height() - place.height() - look::Scaled(Clearance)));
  return place;
}

void LogoView::Place() {
  const QPoint rule(twips::Pixels(control_.Left), twips::Pixels(control_.Top));
  const QPoint place = from_ == From::Parent ? rule : PlaceOf(control_, *parentWidget()).topLeft();
  const int ruled = from_ == From::Parent ? rule.y() : PlaceOnPage(control_, *parentWidget()).y();
  raised_ = ruled - place.y();
  move(place);
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
