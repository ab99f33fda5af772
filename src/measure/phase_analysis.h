#pragma once

#include <cstddef>
#include <vector>

#include "capture/acquisition_state.h"
#include "capture/block_arrays.h"
#include "capture/capture_session.h"
#include "config/settings.h"
#include "forms/main_form.h"
#include "measure/phasor_diagram.h"
#include "platform/analysis.h"
#include "platform/event_queue.h"
#include "platform/number_text.h"

namespace subroutines {

/// The measuring half of the Phasor view: magnitude and angle of all channels from one block, and
/// the choice of the diagram's scales. Voltage A is the reference of everything shown.
class PhaseAnalysis {
 public:
  PhaseAnalysis(forms::Main& main, const config::Settings& settings, const config::Session& session,
                packetroutines::AcquisitionState& state, const packetroutines::BlockArrays& block,
                packetroutines::CaptureSession& capture, PhasorDiagram& diagram,
                platform::EventQueue& events, const platform::NumberText& numbers);

  /// Computes and draws one block.
  void UpdatePhases();
  /// Degrees from -180 to 180 by which channel `other` lags channel `reference`, from the
  /// correlation of both with one period of 80 frames. Failure 11 for a base frequency of 0.
  double PhaseShift(std::size_t reference, std::size_t other) const;

 private:
  void BuildReference(std::vector<double>& sines, std::vector<double>& cosines) const;
  void CWButton2_ValueChanged();
  void BeginRun();
  void EndRun();
  void Check6_Click();
  void EnableScales();

  forms::Main& main_;
  const config::Settings& settings_;
  const config::Session& session_;
  packetroutines::AcquisitionState& state_;
  const packetroutines::BlockArrays& block_;
  packetroutines::CaptureSession& capture_;
  PhasorDiagram& diagram_;
  platform::EventQueue& events_;
  const platform::NumberText& numbers_;
  platform::CWArray array_;
  bool autoRange_ = true;
};

}  // namespace subroutines
