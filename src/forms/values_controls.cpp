#include "forms/values_controls.h"

#include "forms/run_tips.h"

namespace forms {

ValuesControls::ValuesControls() {
  CWButton4.ToolTipText = RunTip;
  Check5.Caption = "re&al time value";
  Check5.ToolTipText = "activates real time (live stream) ethernet measurement for choosen channel";
  for (platform::Label& value : Label5) {
    value.ToolTipText = "while running real-time mode, a click will activate view of RMS value";
  }
  for (std::size_t reserved = 0; reserved < small_label::Qualities; ++reserved) {
    Label12[reserved].ToolTipText = "as result of quality bits (neutral measured/calculated)";
  }
  Label16.Caption = "Shown Station ID:";
}

}  // namespace forms
