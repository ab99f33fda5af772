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
  panels[status_panel::Adapter].Key = "network adapter";
  panels[status_panel::Adapter].ToolTipText = "shows actual choosen network adapter";
  panels[status_panel::Printer].Key = "standard printer";
  panels[status_panel::Printer].ToolTipText = "shows actual choosen standard printer";
  panels[status_panel::Samples].Key = "Samples for RMS";
  panels[status_panel::Samples].ToolTipText = "shows actual state of sampling";
  panels[status_panel::Errors].Key = "Error count";
  panels[status_panel::Errors].ToolTipText = "shows errors of ramp count";
}

}  // namespace forms
