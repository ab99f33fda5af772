#include "desktop/pages/waveforms_page.h"

#include <QVBoxLayout>

#include "desktop/binding/run_binding.h"
#include "desktop/look/look.h"
#include "desktop/look/places.h"
#include "desktop/look/text.h"
#include "desktop/look/twips.h"
#include "desktop/widgets/announced.h"
#include "desktop/widgets/tab_order.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr int FrameWidth = 220;
constexpr int Padding = 12;
constexpr int LegendGap = 10;
/// Room at the foot of the frame for the logo.
constexpr int LogoRoom = 60;
/// Between the window's left edge and the axis of the graph.
constexpr int AxisLeft = 36;
constexpr int LineGap = 3;

QLabel* Heading(const platform::Label& words, QWidget* parent) {
  return new QLabel(ToQt(words.Caption), parent);
}

}  // namespace

WaveformsPage::WaveformsPage(forms::WaveformsControls& scope, forms::SharedControls& shared,
                             forms::WindowControls& form, Binder& binder, platform::Guard& guard,
                             QWidget* parent)
    : QWidget(parent),
      scope_(scope),
      shared_(shared),
      graph_(new GraphView(scope.CWGraph1, guard, this)),
      frame_(new Ground(this)),
      run_(new RunColumn(frame_)),
      print_(new QPushButton(run_)),
      quiet_(new QuietLine(this)) {
  TakeScale();
  frame_->setObjectName(QStringLiteral("Frame1"));
  graph_->setObjectName(QStringLiteral("CWGraph1"));
  Announce(*graph_, QAccessible::Chart, QStringLiteral("Waveforms"));
  graph_->setToolTip(ToQt(scope_.CWGraph1.ToolTipText));
  BindControls(binder);
  FillFrame();
  Follow(form);
}

void WaveformsPage::TakeScale() {
  scope_.Frame1.Width = twips::Of(look::Scaled(FrameWidth));
}

void WaveformsPage::BindControls(Binder& binder) {
  for (std::size_t i = 0; i < legend_.size(); ++i) {
    legend_[i] = new LegendBox(run_);
    binder.Bind(scope_.Check2[i], *legend_[i], ArrayName("Check2", i), Wording::Foreign);
  }
  for (std::size_t i = 0; i < modes_.size(); ++i) {
    modes_[i] = new RadioButton(run_);
    binder.Bind(scope_.sevOption1[i], *modes_[i], ArrayName("sevOption1", i));
  }
  binder.Bind(scope_.Command1, *print_, QStringLiteral("Command1"));
  binder.Bind(shared_.QuietLine[forms::quiet_line::Waveforms], *quiet_,
              ArrayName("QuietLine", forms::quiet_line::Waveforms));
  for (LegendBox* box : legend_) run_->AddRow(box, box == legend_[0] ? LegendGap : 0);
  run_->AddGroup(Heading(scope_.ModesHeading, run_), {modes_[0], modes_[1], modes_[2]});
  BindRun(binder, shared_,
          {scope_.CWButton1, "CWButton1", forms::indicator::Waveforms, forms::station::Waveforms},
          *run_);
  run_->StationHeading().setText(ToQt(scope_.StationHeading.Caption));
  run_->AddRow(print_);
  OrderTabs();
}

void WaveformsPage::OrderTabs() {
  // As the eye goes: the graph, then the column beside it from its head to its foot.
  std::vector<QWidget*> order = {graph_, &run_->Button()};
  order.insert(order.end(), legend_.begin(), legend_.end());
  order.insert(order.end(), modes_.begin(), modes_.end());
  for (std::size_t i = 0; i < RunColumn::Stations; ++i) order.push_back(&run_->Station(i));
  order.push_back(print_);
  LeadTabs(order);
}

void WaveformsPage::FillFrame() {
  auto* column = new QVBoxLayout(frame_);
  column->setContentsMargins(Padding, Padding, Padding, LogoRoom);
  column->addWidget(run_);
  column->addStretch(1);
}

void WaveformsPage::Follow(forms::WindowControls& form) {
  scope_.Frame1.Visible.Observe([this] { frame_->setVisible(scope_.Frame1.Visible); });
  scope_.CWGraph1.Visible.Observe([this] { graph_->setVisible(scope_.CWGraph1.Visible); });
  frame_->setVisible(scope_.Frame1.Visible);
  graph_->setVisible(scope_.CWGraph1.Visible);
  form.Window.Layouts.Observe([this] { Lay(); });
}

void WaveformsPage::resizeEvent(QResizeEvent*) {
  Lay();
}

void WaveformsPage::Lay() {
  // Before the first layout the graph has no size to draw in.
  if (scope_.CWGraph1.Width <= 0 || scope_.CWGraph1.Height <= 0) return;
  graph_->setGeometry(PlaceOnPage(scope_.CWGraph1, *this));
  frame_->setGeometry(PlaceOnPage(scope_.Frame1, *this));
  // The frame is full in the smallest window, but there is a strip below it and the graph.
  const int below = frame_->geometry().bottom() + look::Scaled(LineGap);
  const int left = look::Scaled(AxisLeft);
  quiet_->setGeometry(left, below, frame_->geometry().right() - left, height() - below);
}

}  // namespace desktop
