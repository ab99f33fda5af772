#include "forms/run_buttons.h"

#include "forms/run_tips.h"

namespace forms {

void RunButtons::ShowIdleTips() const {
  const auto show = [](platform::CWButton& button, const char* tip) {
    if (!button.Value && button.ToolTipText == StopTip) button.ToolTipText = tip;
  };
  show(CWButton4, RunValuesTip);
  show(CWButton2, RunPhasesTip);
}

}  // namespace forms
