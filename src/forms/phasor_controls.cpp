#include "forms/phasor_controls.h"

#include "forms/run_tips.h"

namespace forms {

PhasorControls::PhasorControls() {
  CWButton2.ToolTipText = RunTip;
  Frame2.Caption = "Phasor Diagram";
  Frame3.Caption = "scale factors:";
  Label17.Caption = "Shown Station ID:";
  Check6.Caption = "automati&c";
  ScaleCaptions[full_scale::Current].Caption = "FS current:";
  ScaleCaptions[full_scale::Voltage].Caption = "FS voltage";
}

}  // namespace forms
