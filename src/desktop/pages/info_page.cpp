#include "desktop/pages/info_page.h"

#include <QPainter>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/look/places.h"
#include "desktop/look/text.h"
#include "desktop/look/twips.h"
#include "desktop/widgets/tab_bar.h"

namespace desktop {

namespace {

constexpr int LogoWidth = 371;
constexpr int LinkPadding = 4;
// The card behind the rows, in pixels of the smallest window.
constexpr double CardHeight = 476;
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
  const int padding = look::Scaled(LinkPadding);
  link.resize(words + QSize(2 * padding, padding));
  control.Width = twips::Of(link.width());
  control.Height = twips::Of(link.height());
}

void InfoPage::PlaceLinks() {
  // Above the logo, which the window's title may have lifted. The words end where the logo does:
  // what is left free at their side is for the edge of the focus.
  const QPoint aside(look::Scaled(LinkPadding), -logo_->Raised());
  support_->move(PlaceOnPage(shared_.Label3[forms::side_caption::Support], *this).topLeft() +
                 aside);
  history_->move(PlaceOnPage(page_.Label4, *this).topLeft() + aside);
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
  const double margin = look::Scaled(look::PageMargin);
  const QRectF card(margin, margin, width() - 2 * margin, CardHeight * ratio);
  const double corner = (look::Corner + 2) * ratio;
  painter.setPen(QPen(look::Edge, std::max(1, look::Scaled(1))));
  painter.setBrush(look::Card);
  painter.drawRoundedRect(card, corner, corner);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look::ColourOf(form_.TabStrip1.ColorTo));
  const double bar = BarWidth * ratio;
  painter.drawRoundedRect(
      QRectF(card.left(), card.top() + 1.5 * corner, bar, card.height() - 3 * corner), bar / 2,
      bar / 2);
}

}  // namespace desktop
