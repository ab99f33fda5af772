#include "forms/main_form.h"

namespace forms {

namespace {

constexpr const char* RunTip =
    "'RUN' starts recording samples acc. to time base; 'STOP' freeze actual view";
constexpr const char* RunUntilStopTip =
    "'RUN' starts recording samples acc. to time base; 'STOP' stops it";

}  // namespace

Main::Main(platform::TimerQueue& timers) : Timer1(timers), Timer2(timers), Timer3(timers) {
  DescribeTabs();
  DescribeStatusBar();
  Label3[0].ToolTipText = "sends an email to the support team of this program";
  Label4.Caption = "Revisionhistory";
  Label4.ToolTipText = "shows the history of the program";
  Command8.Caption = "&End";
  DescribeValues();
  DescribePhasor();
  DescribeWaveforms();
  DescribeRecorder();
  DescribeReport();
  DescribeSetup();
  DescribeSetupTips();
  GroupOptions();
}

void Main::ShowIdleTips() {
  const auto show = [](platform::CWButton& button, const char* tip) {
    if (!button.Value && button.ToolTipText == StopTip) button.ToolTipText = tip;
  };
  show(CWButton4, RunValuesTip);
  show(CWButton2, RunPhasesTip);
}

void Main::DescribeTabs() {
  TabStrip1.Tabs = {
      {"&Info", "please read carefully these informations", "Information"},
      {"&Values", "measured values", "Gives after each aqusition the measured values"},
      {"&Phasor", "Phasor diagram", "Shows all values in a circle diagram"},
      {"&Waveforms", "Scope", "You get the waveform like a scope"},
      {"&Recorder", "Long time recording", "This card starts a long time recording session"},
      {"R&eport", "Report", "Gives information about the packet queue"},
      {"&Setup", "Configuration", "This gives the setting of the program"},
      {"E&xit", "Quit", "Immeadiately stopping the program"},
  };
}

void Main::DescribeStatusBar() {
  auto& panels = StatusBar1.Panels;
  panels[0].Key = "network adapter";
  panels[0].ToolTipText = "shows actual choosen network adapter";
  panels[1].Key = "standard printer";
  panels[1].ToolTipText = "shows actual choosen standard printer";
  panels[2].Key = "Samples for RMS";
  panels[2].ToolTipText = "shows actual state of sampling";
  panels[3].Key = "Error count";
  panels[3].ToolTipText = "shows errors of ramp count";
}

void Main::DescribeValues() {
  CWButton4.ToolTipText = RunTip;
  Check5.Caption = "re&al time value";
  Check5.ToolTipText = "activates real time (live stream) ethernet measurement for choosen channel";
  for (platform::Label& value : Label5) {
    value.ToolTipText = "while running real-time mode, a click will activate view of RMS value";
  }
  for (const std::size_t reserved : {0U, 1U}) {
    Label12[reserved].ToolTipText = "as result of quality bits (neutral measured/calculated)";
  }
  Label16.Caption = "Shown Station ID:";
}

void Main::DescribePhasor() {
  CWButton2.ToolTipText = RunTip;
  Frame2.Caption = "Phasor Diagram";
  Frame3.Caption = "scale factors:";
  Label17.Caption = "Shown Station ID:";
  Check6.Caption = "automati&c";
}

void Main::DescribeWaveforms() {
  CWButton1.ToolTipText = RunTip;
  Command1.Caption = "Print";
  Command1.ToolTipText =
      "prints the graphs on the standard printer or copies it to the clipboard (right click)";
  CWGraph1.ToolTipText =
      "click and hold to pan graph, double click of mouse button will give an auto scale and right "
      "click shows samples";
  sevOption1[0].Caption = "Pan with mouse";
  sevOption1[1].Caption = "Zoom with mouse";
  sevOption1[2].Caption = "autoscaling";
}

void Main::DescribeRecorder() {
  CWButton3.ToolTipText = RunUntilStopTip;
  Option2[0].Caption = "CSV - text format (&max. 4GBbyte)";
  Option2[1].Caption = "file format Microsoft E&xcel™ compatible (limitation to 32767 lines)";
  Option2[2].Caption = "COMTRA&DE format (max. 4GByte)";
  Label10[0].Caption = "Real-time recording to hard disk";
  Label10[2].Caption = "Duration of recording / sample counter:";
  Label10[3].Caption = "0 s / 0 samples";
  Command9.Caption = "Open &log file";
  Command9.ToolTipText = "opens the log 'txt' file in your standard text editor";
  Label3[5].Caption = "voltage:";
  Label3[6].Caption = "current:";
  Label3[9].Caption = "sample diff for channel A/B/C";
  Label3[22].Caption = "overflo&w value:";
  Label3[23].Caption = "seconds";
  Label3[24].Caption = "ti&me before/after";
  Label3[28].Caption = "seconds pause after trigger event";
  Text3[8].ToolTipText = "seconds pause after trigger event";
  Option1[0].Caption = "single trig&ger";
  Option1[1].Caption = "co&nt trigger";
  Option1[2].Caption = "immedi&ate";
}

void Main::DescribeReport() {
  Command2.ToolTipText = RunUntilStopTip;
  Command2.OnText = "WAIT";
  Command4.Caption = "&Print report!";
  Command4.ToolTipText = "prints the given report on the choosen standard printer of the programm";
  sevLabel4.Caption = "Shown Station ID:";
}

void Main::GroupOptions() {
  for (std::size_t first = 0; first < Option3.size(); first += 2) {
    platform::OptionButton::Group({&Option3[first], &Option3[first + 1]});
  }
  platform::OptionButton::Group({&sevOption1[0], &sevOption1[1], &sevOption1[2]});
  platform::OptionButton::Group({&Option2[0], &Option2[1], &Option2[2]});
  platform::OptionButton::Group({&Option1[0], &Option1[1], &Option1[2]});
  for (platform::OptionButton& station : Option3) {
    station.ToolTipText = "select the station ID to aquire his values";
  }
}

}  // namespace forms
