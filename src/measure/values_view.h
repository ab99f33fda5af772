#pragma once

#include <cstdint>

#include "capture/view.h"
#include "forms/phasor_controls.h"
#include "forms/setup_controls.h"
#include "forms/shared_controls.h"
#include "forms/values_controls.h"
#include "measure/view_context.h"
#include "platform/analysis.h"

namespace subroutines {

/// The multimeter: RMS and DC of the eight channels of the shown stream, block by block, or one
/// channel frame by frame in real-time mode. It also owns the list of number formats and the
/// channel captions.
class ValuesView : public packetroutines::View {
 public:
  /// `names` are the fields of the channel names and the lists of units and formats; `table` shows
  /// the names on the Phasor view.
  ValuesView(forms::ValuesControls& values, forms::SharedControls& shared,
             forms::SetupControls& names, forms::PhasorControls& table, const ViewContext& context);

  std::int16_t Tab() const override { return forms::tab::Values; }
  /// Brings up the colour of the run button and the stored choice of the DC labels.
  void Load() override;
  void Withdraw() override;
  void Show(const platform::Routine& run) override;
  void Hide() override;
  /// Sets all numbers to the formatted 0 and empties the DC labels.
  void ClearValues();
  /// Computes one block and shows it on all eight channels.
  void CalculateValues();
  /// Fills the list of number formats and selects the stored one; an index beyond it falls to the
  /// last.
  void FillFormatList();
  /// Writes the channel names to their fields and, with the unit, to their captions.
  void ShowChannelNames();

 private:
  void CWButton4_ValueChanged();
  void BeginRun();
  void EndRun();
  void Check5_Click();
  void ShowLiveReading();
  void Label5_Click(std::size_t channel);
  void Check4_Click();
  void Combo3_Click();

  forms::ValuesControls& values_;
  forms::SharedControls& shared_;
  forms::SetupControls& setup_;
  forms::PhasorControls& table_;
  ViewContext context_;
  bool showingNames_ = false;
};

}  // namespace subroutines
