#include "desktop/pages/waveforms_page.h"

#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/look/twips.h"

namespace desktop {

namespace {

constexpr int FrameWidth = 3300;
constexpr int ButtonHeight = 60;
/// Room at the foot of the frame for the logo.
constexpr int LogoRoom = 60;
constexpr int Gap = 12;
/// Between the window's left edge and the axis of the graph.
constexpr int AxisLeft = 36;

using twips::Pixels;

QLabel* Heading(const QString& words, QWidget* parent) {
  auto* heading = new QLabel(words, parent);
  heading->setFont(look::BoldFont(look::TextSize));
  return heading;
}

}  // namespace

WaveformsPage::WaveformsPage(forms::WaveformsControls& scope, forms::SharedControls& shared,
                             Binder& binder, Guard& guard, QWidget* parent)
    : QWidget(parent),
      scope_(scope),
      shared_(shared),
      graph_(new GraphView(scope.CWGraph1, guard, this)),
      frame_(new QFrame(this)),
      indicator_(new RunIndicator(frame_)),
      run_(new RunButton(frame_)),
      print_(new QPushButton(frame_)),
      quiet_(new QuietLine(this)),
      modesHeading_(Heading(ToQt(scope.ModesHeading.Caption), frame_)),
      stationHeading_(Heading(ToQt(scope.StationHeading.Caption), frame_)) {
  scope_.Frame1.Width = FrameWidth;
  frame_->setObjectName(QStringLiteral("Frame1"));
  frame_->setStyleSheet(QStringLiteral("#Frame1 { background: %1; border: 1px solid %2; "
                                       "border-radius: 7px; }")
                            .arg(look::Card.name(), look::Edge.name()));
  graph_->setObjectName(QStringLiteral("CWGraph1"));
  graph_->setAccessibleName(QStringLiteral("Waveforms"));
  graph_->setToolTip(ToQt(scope_.CWGraph1.ToolTipText));
  BindControls(binder);
  FillFrame();
  Follow();
}

void WaveformsPage::BindControls(Binder& binder) {
  binder.Bind(shared_.Shape12[forms::indicator::Waveforms], *indicator_, ArrayName("Shape12", 2));
  binder.Bind(scope_.CWButton1, *run_, QStringLiteral("CWButton1"));
  binder.Bind(scope_.Command1, *print_, QStringLiteral("Command1"));
  binder.Bind(shared_.QuietLine[forms::quiet_line::Waveforms], *quiet_,
              ArrayName("QuietLine", forms::quiet_line::Waveforms));
  for (std::size_t i = 0; i < legend_.size(); ++i) {
    legend_[i] = new LegendBox(frame_);
    legend_[i]->setFont(look::BoldFont(look::TextSize));
    binder.Bind(scope_.Check2[i], *legend_[i], ArrayName("Check2", i), Ampersand::Letter);
  }
  for (std::size_t i = 0; i < modes_.size(); ++i) {
    modes_[i] = new RadioButton(frame_);
    binder.Bind(scope_.sevOption1[i], *modes_[i], ArrayName("sevOption1", i));
  }
  for (std::size_t i = 0; i < stations_.size(); ++i) {
    stations_[i] = new RadioButton(frame_);
    binder.Bind(shared_.Option3[i + forms::station::Waveforms], *stations_[i],
                ArrayName("Option3", i + 2), Ampersand::Letter);
  }
}

void WaveformsPage::FillFrame() {
  auto* column = new QVBoxLayout(frame_);
  column->setContentsMargins(Gap + RunIndicator::Reach, Gap + RunIndicator::Reach,
                             Gap + RunIndicator::Reach, LogoRoom);
  column->setSpacing(6);
  run_->setFixedHeight(ButtonHeight);
  column->addWidget(run_);
  column->addSpacing(Gap);
  for (LegendBox* box : legend_) column->addWidget(box);
  column->addSpacing(Gap);
  column->addWidget(modesHeading_);
  for (RadioButton* mode : modes_) column->addWidget(mode);
  column->addSpacing(Gap);
  column->addWidget(stationHeading_);
  for (RadioButton* station : stations_) column->addWidget(station);
  column->addSpacing(Gap);
  column->addWidget(print_);
  column->addStretch(1);
}

void WaveformsPage::Follow() {
  scope_.Frame1.Visible.Observe([this] { frame_->setVisible(scope_.Frame1.Visible); });
  scope_.CWGraph1.Visible.Observe([this] { graph_->setVisible(scope_.CWGraph1.Visible); });
  frame_->setVisible(scope_.Frame1.Visible);
  graph_->setVisible(scope_.CWGraph1.Visible);
  scope_.CWGraph1.Height.Observe([this] { Lay(); });
}

void WaveformsPage::resizeEvent(QResizeEvent*) {
  Lay();
}

void WaveformsPage::Lay() {
  // Before the first layout the graph has no size to draw in.
  if (scope_.CWGraph1.Width <= 0 || scope_.CWGraph1.Height <= 0) return;
  // Places count from the window's top, above the row of tabs.
  const int above = mapTo(window(), QPoint(0, 0)).y();
  const auto place = [above](QWidget& widget, const platform::Control& control) {
    widget.setGeometry(Pixels(control.Left), Pixels(control.Top) - above, Pixels(control.Width),
                       Pixels(control.Height));
  };
  place(*graph_, scope_.CWGraph1);
  place(*frame_, scope_.Frame1);
  frame_->layout()->activate();
  indicator_->CentreOn(*run_);
  // The frame is full in the smallest window, but there is a strip below it and the graph.
  quiet_->setFont(look::TextFont(look::TextSize));
  const int below = frame_->geometry().bottom() + Gap / 4;
  quiet_->setGeometry(AxisLeft, below, frame_->geometry().right() - AxisLeft, height() - below);
}

}  // namespace desktop
