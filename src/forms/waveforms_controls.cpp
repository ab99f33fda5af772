#include "forms/waveforms_controls.h"

#include "forms/run_tips.h"

namespace forms {

WaveformsControls::WaveformsControls() {
  CWButton1.ToolTipText = RunTip;
  Command1.Caption = "Print";
  Command1.ToolTipText =
      "prints the graphs on the standard printer or copies it to the clipboard (right click)";
  CWGraph1.ToolTipText =
      "click and hold to pan graph, double click of mouse button will give an auto scale and right "
      "click shows samples";
  sevOption1[graph_mode::Pan].Caption = "Pan with mouse";
  sevOption1[graph_mode::Zoom].Caption = "Zoom with mouse";
  sevOption1[graph_mode::Autoscale].Caption = "autoscaling";
  ModesHeading.Caption = "Graph Modes:";
  StationHeading.Caption = "Shown Station ID:";
  platform::OptionButton::Group({&sevOption1[graph_mode::Pan], &sevOption1[graph_mode::Zoom],
                                 &sevOption1[graph_mode::Autoscale]});
}

}  // namespace forms
