#include "forms/recorder_controls.h"

#include "forms/run_tips.h"

namespace forms {

RecorderControls::RecorderControls() {
  CWButton3.ToolTipText = RunUntilStopTip;
  Option2[record_format::Text].Caption = "CSV - text format (&max. 4GBbyte)";
  Option2[record_format::Worksheet].Caption =
      "file format Microsoft E&xcel™ compatible (limitation to 32767 lines)";
  Option2[record_format::Comtrade].Caption = "COMTRA&DE format (max. 4GByte)";
  Label10[record_line::Heading].Caption = "Real-time recording to hard disk";
  Label10[record_line::ProgressHeading].Caption = "Duration of recording / sample counter:";
  Label10[record_line::Progress].Caption = "0 s / 0 samples";
  CWGraph2.XAxis.Caption = "x * 4000 samples";
  Command9.Caption = "Open &log file";
  Command9.ToolTipText = "opens the log 'txt' file in your standard text editor";
  OpenFolder.Caption = "Open &folder";
  OpenFolder.ToolTipText = "opens the folder of the recordings in your file manager";
  CheckRecording.Visible = false;
  Text3[trigger_field::Pause].ToolTipText = "seconds pause after trigger event";
  Option1[trigger_kind::Single].Caption = "single trig&ger";
  Option1[trigger_kind::Continuous].Caption = "co&nt trigger";
  Option1[trigger_kind::Immediate].Caption = "immedi&ate";
  platform::OptionButton::Group({&Option2[record_format::Text], &Option2[record_format::Worksheet],
                                 &Option2[record_format::Comtrade]});
  platform::OptionButton::Group({&Option1[trigger_kind::Single], &Option1[trigger_kind::Continuous],
                                 &Option1[trigger_kind::Immediate]});
}

}  // namespace forms
