#include "desktop/binding/rich_rows.h"

#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/look/text.h"
#include "desktop/look/twips.h"
#include "desktop/widgets/elided_label.h"

namespace desktop {

namespace {

/// Height of a row of text as a multiple of its font.
constexpr double LinePart = 1.5;

}  // namespace

RichRows::RichRows(Binder& binder, QWidget& page, QPoint origin)
    : binder_(binder), page_(page), origin_(origin) {}

QLabel* RichRows::Add(platform::Label& row, const QString& name, Wording wording) {
  QLabel* widget = wording == Wording::Foreign ? new ElidedLabel(&page_) : new QLabel(&page_);
  look::KeepFont(*widget);
  binder_.Bind(row, *widget, name, wording);
  rows_.push_back({row, widget});
  const auto lay = [this, added = rows_.back()] { Lay(added); };
  row.Left.Observe(lay);
  row.Top.Observe(lay);
  row.Width.Observe(lay);
  row.FontName.Observe(lay);
  row.FontSize.Observe(lay);
  row.FontBold.Observe(lay);
  row.FontUnderline.Observe(lay);
  lay();
  return widget;
}

void RichRows::Lay(double ratio) {
  ratio_ = ratio;
  for (const Row& row : rows_) Lay(row);
}

void RichRows::Lay(const Row& row) const {
  const double pixels = twips::PointPixels(static_cast<double>(row.Control.FontSize)) * ratio_;
  QFont font = look::TextFont(static_cast<int>(pixels), ToQt(row.Control.FontName));
  font.setBold(row.Control.FontBold);
  font.setUnderline(row.Control.FontUnderline);
  row.Widget->setFont(font);
  const auto scaled = [this](std::int32_t twips, int offset) {
    return static_cast<int>((twips::Pixels(twips) - offset) * ratio_);
  };
  row.Widget->setGeometry(scaled(row.Control.Left, origin_.x()),
                          scaled(row.Control.Top, origin_.y()), scaled(row.Control.Width, 0),
                          static_cast<int>(pixels * LinePart));
}

}  // namespace desktop
