#pragma once

#include "config/settings.h"
#include "forms/recorder_controls.h"
#include "forms/shared_controls.h"

namespace subroutines {

/// The trigger settings of the Recorder view. They are stored and partly shown; nothing evaluates
/// them, and nothing reads their fields back.
class TriggerBlock {
 public:
  TriggerBlock(forms::RecorderControls& recorder, forms::SharedControls& shared,
               config::Settings& settings);

 private:
  void Option1_Click(std::size_t kind);
  void ShowFields(bool visible);

  forms::RecorderControls& recorder_;
  forms::SharedControls& shared_;
  config::Settings& settings_;
};

}  // namespace subroutines
