#include "measure/scope_view.h"

#include <vector>

namespace subroutines {

using platform::CWGraph;

namespace {

constexpr std::size_t ZoomOption = 1;
constexpr std::size_t AutoscaleOption = 2;
/// A marker at every point.
constexpr std::int16_t SampleMarker = 15;

void ScaleNow(const CWGraph& graph) {
  graph.XAxis.ScaleNow();
  graph.YAxis.ScaleNow();
}

}  // namespace

ScopeView::ScopeView(forms::Main& main, config::Settings& settings, const config::Session& session,
                     SettingsFile& file, packetroutines::AcquisitionState& state,
                     const packetroutines::BlockArrays& block,
                     packetroutines::CaptureSession& capture, platform::EventQueue& events)
    : main_(main),
      settings_(settings),
      session_(session),
      file_(file),
      state_(state),
      block_(block),
      capture_(capture),
      events_(events) {
  main_.CWButton1.ValueChanged = [this] { CWButton1_ValueChanged(); };
  for (std::size_t i = 0; i < main_.Check2.size(); ++i) {
    main_.Check2[i].Click = [this, i] { Check2_Click(i); };
  }
  for (std::size_t i = 0; i < main_.sevOption1.size(); ++i) {
    main_.sevOption1[i].Click = [this, i] { sevOption1_Click(i); };
  }
  main_.CWGraph1.DblClick = [this] { ScaleNow(main_.CWGraph1); };
  main_.CWGraph1.MouseDown = [this](std::int16_t button) { CWGraph1_MouseDown(button); };
  main_.CWGraph1.ZoomFinished = [this] { CWGraph1_ZoomFinished(); };
  main_.CWGraph2.DblClick = [this] { ScaleNow(main_.CWGraph2); };
  main_.CWGraph2.MouseDown = [this](std::int16_t button) { CWGraph2_MouseDown(button); };
}

void ScopeView::PlotBlock(std::string_view mode) {
  for (std::size_t i = 0; i < main_.CWGraph1.Plots.size(); ++i) {
    const auto column = array_.Column(block_.SignalValues, i);
    std::vector<double> x(column.begin(), column.end());
    const bool shown = main_.Check2[i].Value == 1;
    // A hidden curve is all zeros, so that no stale one takes part in a later scaling.
    if (!shown) platform::CWArray::Clear(x);
    platform::Plot& plot = main_.CWGraph1.Plots[i];
    if (plot.Visible != shown) plot.Visible = shown;
    plot.Y = std::move(x);
  }
  if (mode == "Auto") ScaleNow(main_.CWGraph1);
  events_.Pump();
  main_.CWGraph1.Refresh();
}

void ScopeView::Check2_Click(std::size_t channel) {
  // While the form loads the boxes get their stored values, and no format is set yet.
  if (!session_.UnitFormat.empty()) PlotBlock("Auto");
  settings_.SensorEnabled[channel] = main_.Check2[channel].Value;
  file_.SaveSettings();
}

void ScopeView::sevOption1_Click(std::size_t mode) {
  CWGraph& graph = main_.CWGraph1;
  graph.XAxis.AutoScale = false;
  graph.YAxis.AutoScale = false;
  if (mode == AutoscaleOption) {
    graph.XAxis.AutoScale = true;
    graph.YAxis.AutoScale = true;
    ScaleNow(graph);
  } else {
    graph.TrackMode = mode == ZoomOption ? CWGraph::ZoomMode : CWGraph::PanMode;
  }
}

void ScopeView::CWGraph1_ZoomFinished() {
  if (main_.sevOption1[ZoomOption].Value) main_.sevOption1[0].Value = true;
}

void ScopeView::CWGraph1_MouseDown(std::int16_t button) {
  if (button != CWGraph::RightButton) return;
  samplesShown_ = !samplesShown_;
  for (platform::Plot& plot : main_.CWGraph1.Plots) {
    plot.LineStyle = static_cast<std::int16_t>(samplesShown_ ? 0 : 1);
    plot.PointStyle = samplesShown_ ? SampleMarker : std::int16_t{0};
    plot.LineWidth = 2;
  }
}

void ScopeView::CWGraph2_MouseDown(std::int16_t button) {
  if (button != CWGraph::RightButton) return;
  main_.CWGraph2.TrackMode = recorderZoomMode_ ? CWGraph::PanMode : CWGraph::ZoomMode;
  recorderZoomMode_ = !recorderZoomMode_;
}

void ScopeView::CWButton1_ValueChanged() {
  events_.Pump();
  if (main_.CWButton1.Value) {
    main_.CWButton1.Enabled = false;
    main_.Command1.Enabled = false;
    state_.PacketLengthPending = true;
    state_.BlockCount = 0;
    state_.BlockCount2 = 0;
    capture_.SetupAdapter(packetroutines::LiveBuffer);
    capture_.StartCapture("LookingForScope");
  } else {
    state_.LookingForScope = false;
    capture_.StopCapture();
    main_.CWButton1.Enabled = true;
    main_.Command1.Enabled = true;
  }
}

}  // namespace subroutines
