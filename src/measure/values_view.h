#pragma once

#include "capture/acquisition_state.h"
#include "capture/block_arrays.h"
#include "capture/capture_session.h"
#include "config/settings.h"
#include "config/settings_file.h"
#include "forms/main_form.h"
#include "platform/analysis.h"
#include "platform/event_queue.h"
#include "platform/number_text.h"

namespace subroutines {

/// The multimeter: RMS and DC of the eight channels of the shown stream, block by block, or one
/// channel frame by frame in real-time mode. It also owns the list of number formats and the
/// channel captions.
class ValuesView {
 public:
  ValuesView(forms::Main& main, config::Settings& settings, config::Session& session,
             SettingsFile& file, packetroutines::AcquisitionState& state,
             const packetroutines::BlockArrays& block, packetroutines::CaptureSession& capture,
             platform::EventQueue& events, const platform::NumberText& numbers);

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
  void Label5_Click(std::size_t channel);
  void Check4_Click();
  void Combo3_Click();

  forms::Main& main_;
  config::Settings& settings_;
  config::Session& session_;
  SettingsFile& file_;
  packetroutines::AcquisitionState& state_;
  const packetroutines::BlockArrays& block_;
  packetroutines::CaptureSession& capture_;
  platform::EventQueue& events_;
  const platform::NumberText& numbers_;
  platform::CWArray array_;
  bool showingNames_ = false;
};

}  // namespace subroutines
