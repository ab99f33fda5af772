#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "capture/view.h"
#include "forms/phasor_controls.h"
#include "forms/shared_controls.h"
#include "measure/phasor_diagram.h"
#include "measure/view_context.h"
#include "platform/analysis.h"

namespace subroutines {

/// The measuring half of the Phasor view: magnitude and angle of all channels from one block, and
/// the choice of the diagram's scales. Voltage A is the reference of everything shown.
class PhaseAnalysis : public packetroutines::View {
 public:
  /// `record` keeps the recorder's handlers still while the view comes up.
  PhaseAnalysis(forms::PhasorControls& phasor, forms::SharedControls& shared,
                PhasorDiagram& diagram, packetroutines::RecordFields& record,
                const ViewContext& context);

  std::int16_t Tab() const override { return forms::tab::Phasor; }

  /// Brings up the colours, the table's headings, and the full scales, which are automatic at
  /// first.
  void Load() override;
  void Show(const platform::Routine& run) override;
  void Hide() override;
  void Resized() override { diagram_.DrawPhasorGrid(); }
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
  forms::SharedControls& shared_;
  PhasorDiagram& diagram_;
  packetroutines::RecordFields& record_;
  ViewContext context_;
  bool autoRange_ = true;
};

}  // namespace subroutines
