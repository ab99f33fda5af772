#include "desktop/pages/report_page.h"

#include <QPainter>
#include <algorithm>
#include <vector>

#include "desktop/binding/run_binding.h"
#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/look/twips.h"
#include "desktop/widgets/tab_bar.h"
#include "desktop/widgets/tab_order.h"
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
constexpr double SheetHeight = 500;
constexpr double PanelGap = 18;
constexpr double SheetInset = 8;
constexpr double PanelWidth = 226;
constexpr double QuietGap = 10;
/// The rows take so much of a wide window, and what is told by the structure so much at least.
constexpr double RowsWidth = 740;
constexpr double StructureWidth = 280;
/// Room for the lines of the quiet line, between the rows and the bytes.
constexpr double QuietHeight = 68;
constexpr double BottomGap = 12;
constexpr double HeadingHeight = 24;
/// The logo stands in the lower right corner.
constexpr double LogoRoom = 70;

}  // namespace

ReportPage::ReportPage(forms::ReportControls& report, forms::SharedControls& shared, Binder& binder,
                       QWidget* parent)
    : QWidget(parent),
      rows_(binder, *this, QPoint(0, TabBar::DesignHeight)),
      picker_(new RowPicker(*this)),
      panel_(new Card(QString(), this)),
      run_(new RunColumn(panel_)),
      print_(new QPushButton(run_)),
      quiet_(new QuietLine(this)),
      heading_(new QLabel(QStringLiteral("By its structure"), this)),
      structure_(new StructureField(this)),
      dump_(new TextArea(this)),
      report_(report) {
  AddRows(report);
  BindControls(report, shared, binder);
  AddStructure(report, binder);
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
    QLabel* title = rows_.Add(report.Label7[i], ArrayName("Label7", i), Wording::Own);
    const bool dump = i >= forms::report_row::FirstDump;
    QLabel* value = rows_.Add(report.Label8[i], ArrayName("Label8", i),
                              dump ? Wording::Columns : Wording::Foreign);
    // So a screen reader tells what the value is of.
    title->setBuddy(value);
    picker_->Add({title, value});
  }
}

void ReportPage::AddStructure(forms::ReportControls& report, Binder& binder) {
  binder.Bind(report.Structure, *structure_, QStringLiteral("Structure"));
  heading_->setFont(look::BoldFont(look::TextSize));
  structure_->setAccessibleName(heading_->text());
  dump_->setReadOnly(true);
  dump_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  dump_->setLineWrapMode(QPlainTextEdit::NoWrap);
  dump_->setFont(look::TextFont(look::TextSize, QStringLiteral("Courier New")));
  dump_->setAccessibleName(QStringLiteral("All bytes of the frame"));
  binder.Bind(report.StructureDump, *dump_, QStringLiteral("StructureDump"));
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
  const double margin = look::Scaled(look::PageMargin);
  const QPointF corner(margin, margin);
  const double side = (PanelWidth + PanelGap) * ratio;
  const double room = width() - 2 * corner.x() - side;
  const double between = room - (RowsWidth + PanelGap) * ratio;
  const bool beside = between >= StructureWidth * ratio;
  sheet_ = QRectF(corner, QSizeF(beside ? RowsWidth * ratio : room, SheetHeight * ratio));
  const QRectF panel(corner.x() + room + PanelGap * ratio, corner.y(), PanelWidth * ratio,
                     panel_->sizeHint().height());
  panel_->setGeometry(panel.toRect());
  // The rows are laid out in the size of the smallest window, and end within the sheet.
  const double inside = sheet_.right() / ratio - twips::Pixels(TitleLeft);
  report_.Shape3.Width = twips::Of(static_cast<int>(inside));
  const double bottom = height() - BottomGap * ratio;
  const QRectF structure = beside ? QRectF(QPointF(sheet_.right() + PanelGap * ratio, sheet_.top()),
                                           QPointF(panel.left() - PanelGap * ratio, bottom))
                                  : QRectF(QPointF(panel.left(), panel.bottom() + PanelGap * ratio),
                                           QPointF(panel.right(), height() - LogoRoom * ratio));
  OrderTabs(beside);
  const double heading = HeadingHeight * ratio;
  heading_->setGeometry(QRectF(structure.topLeft(), QSizeF(structure.width(), heading)).toRect());
  structure_->setGeometry(structure.adjusted(0, heading, 0, 0).toRect());
  const double below = sheet_.bottom() + QuietGap * ratio;
  quiet_->setGeometry(QRectF(sheet_.left(), below, sheet_.width(), QuietHeight * ratio).toRect());
  const double dump = below + (QuietHeight + QuietGap) * ratio;
  dump_->setGeometry(QRectF(sheet_.left(), dump, sheet_.width(), bottom - dump).toRect());
  update();
}

void ReportPage::OrderTabs(bool structureBeside) {
  // As the eye goes, column by column; the structure stands beside the rows or below the buttons.
  std::vector<QWidget*> order = {
      this, dump_, &run_->Button(), &run_->Station(0), &run_->Station(1), print_};
  order.insert(structureBeside ? order.begin() + 2 : order.end(), structure_);
  LeadTabs(order);
}

void ReportPage::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double corner = (look::Corner + 2) * look::Scale();
  // The rows are picked by keys too, so their sheet shows the focus of the page.
  painter.setPen(hasFocus() ? QPen(look::Accent, look::LineWidth(2))
                            : QPen(look::Edge, look::LineWidth()));
  painter.setBrush(look::Card);
  painter.drawRoundedRect(sheet_, corner, corner);
  const double inset = SheetInset * look::Scale();
  picker_->Paint(painter, sheet_.adjusted(inset, 0, -inset, 0));
}

}  // namespace desktop
