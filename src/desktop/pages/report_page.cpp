#include "desktop/pages/report_page.h"

#include <QPainter>
#include <algorithm>

#include "desktop/look/look.h"
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
constexpr double PanelWidth = 252;
constexpr double Padding = 22;
constexpr double ButtonHeight = 78;
constexpr double Line = 32;

}  // namespace

ReportPage::ReportPage(forms::ReportControls& report, forms::SharedControls& shared, Binder& binder,
                       QWidget* parent)
    : QWidget(parent),
      rows_(binder, *this, QPoint(0, TabBar::Height)),
      indicator_(new RunIndicator(this)),
      run_(new RunButton(this)),
      stationHeading_(new QLabel(this)),
      print_(new QPushButton(this)) {
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
    rows_.Add(report.Label7[i], ArrayName("Label7", i), Ampersand::Mnemonic);
    rows_.Add(report.Label8[i], ArrayName("Label8", i), Ampersand::Letter);
  }
}

void ReportPage::BindControls(forms::ReportControls& report, forms::SharedControls& shared,
                              Binder& binder) {
  binder.Bind(shared.Shape12[forms::indicator::Report], *indicator_, ArrayName("Shape12", 3));
  binder.Bind(report.Command2, *run_, QStringLiteral("Command2"));
  binder.Bind(report.sevLabel4, *stationHeading_, QStringLiteral("sevLabel4"));
  for (std::size_t i = 0; i < stations_.size(); ++i) {
    stations_[i] = new RadioButton(this);
    binder.Bind(shared.Option3[i + forms::station::Report], *stations_[i],
                ArrayName("Option3", i + 6), Ampersand::Letter);
  }
  binder.Bind(report.Command4, *print_, QStringLiteral("Command4"));
  setTabOrder(run_, stations_[0]);
  setTabOrder(stations_[0], stations_[1]);
  setTabOrder(stations_[1], print_);
}

void ReportPage::resizeEvent(QResizeEvent*) {
  const double ratio = look::TextRatio(*this);
  rows_.Lay(ratio);
  const QPointF corner = SheetCorner * ratio;
  const double side = (PanelWidth + PanelGap) * ratio;
  sheet_ = QRectF(corner, QSizeF(width() - 2 * corner.x() - side, SheetHeight * ratio));
  LayControls(ratio);
  update();
}

void ReportPage::LayControls(double ratio) {
  const QFont font = look::TextFont(static_cast<int>(look::TextSize * ratio));
  const QFont bold = look::BoldFont(font.pixelSize());
  const double panelLeft = sheet_.right() + PanelGap * ratio;
  const double left = panelLeft + Padding * ratio;
  const double inner = (PanelWidth - 2 * Padding) * ratio;
  double y = sheet_.top() + Padding * ratio;
  const auto next = [&](QWidget& widget, double height, double gap) {
    widget.setGeometry(QRectF(left, y, inner, height * ratio).toRect());
    y += (height + gap) * ratio;
  };
  next(*run_, ButtonHeight, Padding * 1.3);
  indicator_->CentreOn(*run_);
  stationHeading_->setFont(bold);
  next(*stationHeading_, Line, 0);
  for (RadioButton* station : stations_) {
    station->setFont(font);
    next(*station, Line, 0);
  }
  y += Padding * 0.6 * ratio;
  print_->setFont(font);
  next(*print_, Line, Padding);
  panel_ = QRectF(panelLeft, sheet_.top(), PanelWidth * ratio, y - sheet_.top());
}

void ReportPage::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(look::Edge, 1));
  painter.setBrush(look::Card);
  for (const QRectF& card : {sheet_, panel_}) {
    painter.drawRoundedRect(card, look::Corner + 2, look::Corner + 2);
  }
}

}  // namespace desktop
