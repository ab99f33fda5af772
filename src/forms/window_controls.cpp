#include "forms/window_controls.h"

namespace forms {

WindowControls::WindowControls() {
  DescribeTabs();
  DescribeStatusBar();
  Command8.Caption = "&End";
}

void WindowControls::DescribeTabs() {
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

void WindowControls::DescribeStatusBar() {
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

}  // namespace forms
