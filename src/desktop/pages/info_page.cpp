#include "desktop/pages/info_page.h"

#include <QPainter>

#include "desktop/look/look.h"
#include "desktop/look/places.h"
#include "desktop/look/text.h"
#include "desktop/look/twips.h"
#include "desktop/widgets/tab_bar.h"

namespace desktop {

namespace {

constexpr int LogoWidth = 400;
constexpr int LinkPadding = 4;
// The card behind the rows, in pixels of the smallest window.
constexpr QRectF CardPlace(20, 22, 984, 470);
constexpr double BarWidth = 5;
const QPoint Origin(0, TabBar::DesignHeight);

}  // namespace

InfoPage::InfoPage(forms::InformationControls& page, forms::SharedControls& shared,
                   forms::WindowControls& form, Binder& binder, QWidget* parent)
    : QWidget(parent),
      page_(page),
      shared_(shared),
      form_(form),
      rows_(binder, *this, Origin),
      logo_(new LogoView(page.Picture4, LogoWidth, LogoView::From::Window, this)),
      support_(new LinkLabel(this)),
      history_(new LinkLabel(this)) {
  for (std::size_t i = 0; i < page.Label1.size(); ++i) {
    rows_.Add(page.Label1[i], ArrayName("Label1", i), Wording::Own);
  }
  binder.Bind(page.Picture4, *logo_, QStringLiteral("Picture4"));
  binder.Bind(shared.Label3[forms::side_caption::Support], *support_, ArrayName("Label3", 0));
  binder.Bind(page.Label4, *history_, QStringLiteral("Label4"));
  for (LinkLabel* link : {support_, history_}) link->setAlignment(Qt::AlignCenter);
  TakeScale();
  form.Window.Layouts.Observe([this] { PlaceLinks(); });
}

void InfoPage::TakeScale() {
  Fit(shared_.Label3[forms::side_caption::Support], *support_);
  Fit(page_.Label4, *history_);
}

void InfoPage::Fit(platform::Label& control, LinkLabel& link) {
  const QSize words = link.fontMetrics().size(0, PlainCaption(control.Caption));
  link.resize(words + QSize(2 * LinkPadding, LinkPadding));
  control.Width = twips::Of(link.width());
  control.Height = twips::Of(link.height());
}

void InfoPage::PlaceLinks() {
  // Above the logo, which the window's title may have lifted.
  const QPoint lifted(0, -logo_->Raised());
  support_->move(PlaceOnPage(shared_.Label3[forms::side_caption::Support], *this).topLeft() +
                 lifted);
  history_->move(PlaceOnPage(page_.Label4, *this).topLeft() + lifted);
}

void InfoPage::resizeEvent(QResizeEvent*) {
  rows_.Lay(look::Scale());
  PlaceLinks();
  update();
}

void InfoPage::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double ratio = look::Scale();
  const QPointF corner = CardPlace.topLeft() * ratio;
  const QRectF card(corner, QSizeF(width() - 2 * corner.x(), CardPlace.height() * ratio));
  painter.setPen(QPen(look::Edge, 1));
  painter.setBrush(look::Card);
  painter.drawRoundedRect(card, look::Corner + 2, look::Corner + 2);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look::ColourOf(form_.TabStrip1.ColorTo));
  painter.drawRoundedRect(QRectF(card.left(), card.top() + 2 * look::Corner, BarWidth,
                                 card.height() - 4 * look::Corner),
                          BarWidth / 2, BarWidth / 2);
}

}  // namespace desktop
