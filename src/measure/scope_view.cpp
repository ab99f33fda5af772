#include "measure/scope_view.h"

#include <array>
#include <cstdint>
#include <vector>

#include "platform/stream_format.h"

namespace subroutines {

using platform::CWGraph;
using platform::Rgb;

namespace {

constexpr std::array<Rgb, platform::channels::Count> PlotColours = {
    Rgb{0, 0, 0},   Rgb{255, 0, 0},   Rgb{0, 0, 255},   Rgb{96, 96, 96},
    Rgb{0, 255, 0}, Rgb{255, 0, 255}, Rgb{0, 255, 255}, Rgb{128, 128, 128}};
/// The markers of a plot follow its line, but for the neutral current.
constexpr Rgb NeutralMarker{192, 192, 192};

void ScaleNow(const CWGraph& graph) {
  graph.XAxis.ScaleNow();
  graph.YAxis.ScaleNow();
}

}  // namespace

ScopeView::ScopeView(forms::WaveformsControls& scope, forms::SharedControls& shared,
                     forms::RecorderControls& recorder, const forms::SetupControls& units,
                     const ViewContext& context)
    : scope_(scope),
      shared_(shared),
      recorder_(recorder),
      context_(context),
      reading_(scope, units, context) {
  scope_.CWButton1.ValueChanged = [this] { CWButton1_ValueChanged(); };
  for (std::size_t i = 0; i < scope_.Check2.size(); ++i) {
    scope_.Check2[i].Click = [this, i] { Check2_Click(i); };
  }
  for (std::size_t i = 0; i < scope_.sevOption1.size(); ++i) {
    scope_.sevOption1[i].Click = [this, i] { sevOption1_Click(i); };
  }
  scope_.CWGraph1.DblClick = [this] { ScaleNow(scope_.CWGraph1); };
  scope_.CWGraph1.MouseDown = [this](std::int16_t button) { CWGraph1_MouseDown(button); };
  scope_.CWGraph1.ZoomFinished = [this] { CWGraph1_ZoomFinished(); };
  recorder_.CWGraph2.DblClick = [this] { ScaleNow(recorder_.CWGraph2); };
  recorder_.CWGraph2.MouseDown = [this](std::int16_t button) { CWGraph2_MouseDown(button); };
}

void ScopeView::Load() {
  scope_.CWButton1.BackColor = scope_.Frame1.BackColor.Get();
  for (std::size_t i = 0; i < scope_.Check2.size(); ++i) {
    platform::Plot& plot = scope_.CWGraph1.Plots[i];
    plot.LineColor = PlotColours[i];
    plot.PointColor = i == platform::channels::CurrentN ? NeutralMarker : PlotColours[i];
    plot.Visible = false;
    // The quick view of a recording has the same eight channels.
    recorder_.CWGraph2.Plots[i].LineColor = PlotColours[i];
    recorder_.CWGraph2.Plots[i].PointColor = PlotColours[i];
    scope_.Check2[i].Value = context_.Settings.SensorEnabled[i];
    scope_.Check2[i].ForeColor = plot.LineColor.Get();
  }
  scope_.CWGraph1.ScreenLook = true;
  FollowFrequency();
}

void ScopeView::FollowFrequency() {
  const double seconds = platform::SecondsPerSample(context_.Settings.BaseFrequency);
  if (scope_.CWGraph1.SecondsPerPoint != seconds) scope_.CWGraph1.SecondsPerPoint = seconds;
}

void ScopeView::Show(const platform::Routine&) {
  // It may have been set on the Setup view meanwhile.
  FollowFrequency();
  scope_.CWGraph1.Visible = true;
  scope_.Frame1.Visible = true;
  shared_.Picture1[forms::logo::Waveforms].Visible = true;
  context_.Stations.Show(forms::station::Waveforms);
}

void ScopeView::Hide() {
  scope_.CWGraph1.Visible = false;
  scope_.Frame1.Visible = false;
  context_.Stations.Hide(forms::station::Waveforms);
  shared_.Picture1[forms::logo::Waveforms].Visible = false;
}

void ScopeView::SelectPan() {
  scope_.sevOption1[forms::graph_mode::Pan].Value = true;
}

const platform::BlockMatrix& ScopeView::BlockToPlot() const {
  // A run that was stopped in the midst of a burst has left the first rows of another block.
  return context_.State.LookingForScope ? context_.Block.SignalValues : context_.Block.LastBlock;
}

void ScopeView::PlotBlock(std::string_view mode) {
  for (std::size_t i = 0; i < scope_.CWGraph1.Plots.size(); ++i) {
    const auto column = array_.Column(BlockToPlot(), i);
    std::vector<double> x(column.begin(), column.end());
    const bool shown = scope_.Check2[i].Value == 1;
    // A hidden curve is all zeros, so that no stale one takes part in a later scaling.
    if (!shown) platform::CWArray::Clear(x);
    platform::Plot& plot = scope_.CWGraph1.Plots[i];
    if (plot.Visible != shown) plot.Visible = shown;
    plot.Y = std::move(x);
  }
  reading_.Plotted();
  if (mode == "Auto") ScaleNow(scope_.CWGraph1);
  context_.Events.Pump();
  scope_.CWGraph1.Refresh();
}

void ScopeView::Check2_Click(std::size_t channel) {
  // While the form loads the boxes get their stored values, and no format is set yet.
  if (!context_.Present.UnitFormat.empty()) PlotBlock("Auto");
  context_.Settings.SensorEnabled[channel] = scope_.Check2[channel].Value;
  context_.Stored.SaveSettings();
}

void ScopeView::sevOption1_Click(std::size_t mode) {
  CWGraph& graph = scope_.CWGraph1;
  graph.XAxis.AutoScale = false;
  graph.YAxis.AutoScale = false;
  if (mode == forms::graph_mode::Autoscale) {
    graph.XAxis.AutoScale = true;
    graph.YAxis.AutoScale = true;
    ScaleNow(graph);
  } else {
    graph.TrackMode = mode == forms::graph_mode::Zoom ? CWGraph::ZoomMode : CWGraph::PanMode;
  }
}

void ScopeView::CWGraph1_ZoomFinished() {
  if (scope_.sevOption1[forms::graph_mode::Zoom].Value)
    scope_.sevOption1[forms::graph_mode::Pan].Value = true;
}

void ScopeView::CWGraph1_MouseDown(std::int16_t button) {
  if (button != platform::mouse_button::Right) return;
  samplesShown_ = !samplesShown_;
  for (platform::Plot& plot : scope_.CWGraph1.Plots) {
    plot.LineStyle = static_cast<std::int16_t>(samplesShown_ ? 0 : 1);
    plot.PointStyle = samplesShown_ ? CWGraph::SampleMarker : std::int16_t{0};
    plot.LineWidth = 2;
  }
}

void ScopeView::CWGraph2_MouseDown(std::int16_t button) {
  if (button != platform::mouse_button::Right) return;
  recorder_.CWGraph2.TrackMode = recorderZoomMode_ ? CWGraph::PanMode : CWGraph::ZoomMode;
  recorderZoomMode_ = !recorderZoomMode_;
}

void ScopeView::CWButton1_ValueChanged() {
  const packetroutines::PageVisit visit(context_.State);
  context_.Events.Pump();
  if (scope_.CWButton1.Value) {
    scope_.CWButton1.Enabled = false;
    scope_.Command1.Enabled = false;
    context_.Capture.CountBlocksAnew();
    context_.Capture.BeginRun("LookingForScope");
  } else {
    // A view that is left by now was stopped by that, and what runs is another one.
    if (!visit.Over()) context_.Capture.EndRun("LookingForScope");
    // RUN may have been pressed in the pumps of the stop.
    if (scope_.CWButton1.Value) return;
    scope_.CWButton1.Enabled = true;
    scope_.Command1.Enabled = true;
  }
}

}  // namespace subroutines
