#include "desktop/pages/report_page.h"

#include <QPainter>

#include "desktop/binding/run_binding.h"
#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/look/twips.h"
#include "desktop/widgets/tab_bar.h"
#include "platform/rich_row.h"

namespace desktop {

namespace {

// The first row of titles and of values, in twips from the upper left corner of the tab strip.
constexpr std::int32_t TitleLeft = 600;
constexpr std::int32_t ValueLeft = 3900;
constexpr std::int32_t RowTop = 1230;
constexpr std::int32_t TitleWidth = 3200;
constexpr std::int32_t ValueWidth = 6900;
// The rest, in pixels of the smallest window.
constexpr QPointF SheetCorner(20, 22);
constexpr double SheetHeight = 500;
constexpr double PanelGap = 18;
constexpr double PanelWidth = 226;
constexpr double QuietGap = 10;

}  // namespace

ReportPage::ReportPage(forms::ReportControls& report, forms::SharedControls& shared, Binder& binder,
                       QWidget* parent)
    : QWidget(parent),
      rows_(binder, *this, QPoint(0, TabBar::DesignHeight)),
      panel_(new Card(QString(), this)),
      run_(new RunColumn(panel_)),
      print_(new QPushButton(run_)),
      quiet_(new QuietLine(this)),
      report_(report) {
  AddRows(report);
  BindControls(report, shared, binder);
}

void ReportPage::AddRows(forms::ReportControls& report) {
  const auto place = [](platform::Label& row, std::size_t number, std::int32_t left,
                        std::int32_t width) {
    row.Left = left;
    row.Top = RowTop + static_cast<std::int32_t>(number) * platform::RowPitch;
    row.Width = width;
  };
  for (std::size_t i = 0; i < report.Label7.size(); ++i) {
    place(report.Label7[i], i, TitleLeft, TitleWidth);
    place(report.Label8[i], i, ValueLeft, ValueWidth);
    rows_.Add(report.Label7[i], ArrayName("Label7", i), Wording::Own);
    const bool dump = i >= forms::report_row::FirstDump;
    rows_.Add(report.Label8[i], ArrayName("Label8", i), dump ? Wording::Columns : Wording::Foreign);
  }
}

void ReportPage::BindControls(forms::ReportControls& report, forms::SharedControls& shared,
                              Binder& binder) {
  BindRun(binder, shared,
          {report.Command2, "Command2", forms::indicator::Report, forms::station::Report}, *run_);
  binder.Bind(report.sevLabel4, run_->StationHeading(), QStringLiteral("sevLabel4"));
  binder.Bind(report.Command4, *print_, QStringLiteral("Command4"));
  run_->AddRow(print_);
  panel_->AddWide(run_);
  binder.Bind(shared.QuietLine[forms::quiet_line::Report], *quiet_,
              ArrayName("QuietLine", forms::quiet_line::Report));
}

void ReportPage::resizeEvent(QResizeEvent*) {
  const double ratio = look::Scale();
  rows_.Lay(ratio);
  const QPointF corner = SheetCorner * ratio;
  const double side = (PanelWidth + PanelGap) * ratio;
  sheet_ = QRectF(corner, QSizeF(width() - 2 * corner.x() - side, SheetHeight * ratio));
  panel_->setGeometry(QRectF(sheet_.right() + PanelGap * ratio, sheet_.top(), PanelWidth * ratio,
                             panel_->sizeHint().height())
                          .toRect());
  // The rows are laid out in the size of the smallest window.
  report_.Shape3.Width = twips::Of(static_cast<int>(sheet_.width() / ratio));
  const double below = sheet_.bottom() + QuietGap * ratio;
  quiet_->setGeometry(QRectF(sheet_.left(), below, sheet_.width(), height() - below).toRect());
  update();
}

void ReportPage::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(look::Edge, 1));
  painter.setBrush(look::Card);
  painter.drawRoundedRect(sheet_, look::Corner + 2, look::Corner + 2);
}

}  // namespace desktop
