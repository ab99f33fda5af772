#pragma once

#include <string_view>

#include "capture/acquisition_state.h"
#include "capture/block_arrays.h"
#include "capture/capture_session.h"
#include "config/settings.h"
#include "config/settings_file.h"
#include "forms/main_form.h"
#include "platform/analysis.h"
#include "platform/event_queue.h"

namespace subroutines {

/// The oscilloscope: the last block of the shown stream as eight curves, with pan, zoom and
/// autoscaling, and the mouse behaviour of the recorder's graph.
class ScopeView {
 public:
  ScopeView(forms::Main& main, config::Settings& settings, const config::Session& session,
            SettingsFile& file, packetroutines::AcquisitionState& state,
            const packetroutines::BlockArrays& block, packetroutines::CaptureSession& capture,
            platform::EventQueue& events);

  /// Draws the block; with the mode "Auto" both axes are scaled to it once, with "Manuell" they
  /// stay.
  void PlotBlock(std::string_view mode);

 private:
  void CWButton1_ValueChanged();
  void Check2_Click(std::size_t channel);
  void sevOption1_Click(std::size_t mode);
  void CWGraph1_ZoomFinished();
  void CWGraph1_MouseDown(std::int16_t button);
  void CWGraph2_MouseDown(std::int16_t button);

  forms::Main& main_;
  config::Settings& settings_;
  const config::Session& session_;
  SettingsFile& file_;
  packetroutines::AcquisitionState& state_;
  const packetroutines::BlockArrays& block_;
  packetroutines::CaptureSession& capture_;
  platform::EventQueue& events_;
  platform::CWArray array_;
  /// Curves are shown as sample markers instead of lines.
  bool samplesShown_ = false;
  /// The recorder's graph is in zoom mode.
  bool recorderZoomMode_ = false;
};

}  // namespace subroutines
