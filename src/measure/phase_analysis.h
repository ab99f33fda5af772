#pragma once

#include <cstddef>
#include <vector>

#include "forms/phasor_controls.h"
#include "measure/phasor_diagram.h"
#include "measure/view_context.h"
#include "platform/analysis.h"

namespace subroutines {

/// The measuring half of the Phasor view: magnitude and angle of all channels from one block, and
/// the choice of the diagram's scales. Voltage A is the reference of everything shown.
class PhaseAnalysis {
 public:
  PhaseAnalysis(forms::PhasorControls& phasor, PhasorDiagram& diagram, const ViewContext& context);

  /// Brings up the colours, the table's headings, and the full scales, which are automatic at
  /// first.
  void Load();
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

  forms::PhasorControls& phasor_;
  PhasorDiagram& diagram_;
  ViewContext context_;
  platform::CWArray array_;
  bool autoRange_ = true;
};

}  // namespace subroutines
