#pragma once

#include <cstdint>
#include <string_view>

#include "capture/view.h"
#include "forms/recorder_controls.h"
#include "forms/shared_controls.h"
#include "forms/waveforms_controls.h"
#include "measure/scope_reading.h"
#include "measure/view_context.h"
#include "platform/analysis.h"

namespace subroutines {

/// The oscilloscope: the last block of the shown stream as eight curves, with pan, zoom and
/// autoscaling, and the mouse behaviour of the recorder's graph.
class ScopeView : public packetroutines::View {
 public:
  /// `units` are the lists of units of the Setup view.
  ScopeView(forms::WaveformsControls& scope, forms::SharedControls& shared,
            forms::RecorderControls& recorder, const forms::SetupControls& units,
            const ViewContext& context);

  std::int16_t Tab() const override { return forms::tab::Waveforms; }

  /// Brings up the colours of the curves and which of them are stored as shown. It comes before the
  /// number formats: without one there is nothing to draw yet.
  void Load() override;
  void Show(const platform::Routine& run) override;
  void Hide() override;
  /// Pan is what the mouse does at first.
  void SelectPan();
  /// Draws the block; with the mode "Auto" both axes are scaled to it once, with "Manuell" they
  /// stay.
  void PlotBlock(std::string_view mode);

 private:
  void FollowFrequency();
  /// The block as it is while the view runs, else the last one that was complete.
  const platform::BlockMatrix& BlockToPlot() const;
  void CWButton1_ValueChanged();
  void Check2_Click(std::size_t channel);
  void sevOption1_Click(std::size_t mode);
  void CWGraph1_ZoomFinished();
  void CWGraph1_MouseDown(std::int16_t button);
  void CWGraph2_MouseDown(std::int16_t button);

  forms::WaveformsControls& scope_;
  forms::SharedControls& shared_;
  /// The recorder's graph is of the same family.
  forms::RecorderControls& recorder_;
  ViewContext context_;
  ScopeReading reading_;
  platform::CWArray array_;
  /// Curves are shown as sample markers instead of lines.
  bool samplesShown_ = false;
  /// The recorder's graph is in zoom mode.
  bool recorderZoomMode_ = false;
};

}  // namespace subroutines
