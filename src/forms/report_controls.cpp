#include "forms/report_controls.h"

#include "forms/run_tips.h"

namespace forms {

ReportControls::ReportControls() {
  Command2.ToolTipText = RunUntilStopTip;
  Command2.OnText = "WAIT";
  Command4.Caption = "&Print report!";
  Command4.ToolTipText = "prints the given report on the choosen standard printer of the programm";
  Structure.ToolTipText = "what the frame holds by its structure; Ctrl+C copies what is selected";
  StructureDump.ToolTipText = "all bytes of the frame; Ctrl+C copies what is selected";
  sevLabel4.Caption = "Shown Station ID:";
}

}  // namespace forms
