#pragma once

#include "base/number_text.h"
#include "config/settings.h"
#include "forms/recorder_controls.h"
#include "forms/shared_controls.h"

namespace subroutines {

/// The trigger settings of the Recorder view. They are stored and partly shown; nothing evaluates
/// them, and nothing reads their fields back.
class TriggerBlock {
 public:
  TriggerBlock(forms::RecorderControls& recorder, forms::SharedControls& shared,
               config::Settings& settings, const platform::NumberText& numbers);

  /// Hides the choice, which nothing shows, and lets it say that a recording starts at once.
  void Load();
  /// Writes the stored numbers to their fields.
  void ShowStored();
  /// Selects the stored choice; any other number leaves the choice as it is.
  void SelectStored();

 private:
  void Option1_Click(std::size_t kind);
  void ShowFields(bool visible);

  forms::RecorderControls& recorder_;
  forms::SharedControls& shared_;
  config::Settings& settings_;
  const platform::NumberText& numbers_;
};

}  // namespace subroutines
