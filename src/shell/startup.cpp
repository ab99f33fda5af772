// The load of the main window, step by step.

#include <string>

#include "base/failure.h"
#include "shell/application.h"

namespace formroutines {

using platform::Crlf;

void Application::Load() {
  Windows.Main.Window.Loaded = true;
  CheckScreen();
  Config.Stored.LoadSettings();
  Config.PrepareStorage(platform_.Files);
  FormSetup();
}

void Application::CheckScreen() {
  const platform::Screen* screen = platform_.Screen;
  if (screen == nullptr ||
      (screen->Width >= platform::MinimumWidth && screen->Height >= platform::MinimumHeight))
    return;
  platform_.Dialogs.Show({"Attention",
                          std::string("Please change the resolution of the screen ") + Crlf +
                              "to minimum of 1024x768 pixels!" + Crlf +
                              "Program will now terminate!",
                          platform::Icon::Critical});
  platform_.Program.End();
}

void Application::FormSetup() {
  forms::Main& main = Windows.Main;
  main.Window.State = platform::WindowState::Minimized;
  main.TabStrip1.Visible = false;
  // Selecting tabs while the views are loaded overwrites the shared value.
  const std::int16_t lastTab = Config.Settings.MainActiveTab;
  try {
    LoadViews();
  } catch (const platform::Failure& failure) {
    throw Config.Stored.WithWayOut(failure,
                                   "A stored setting is outside of what the program can take.");
  }
  platform_.Events.Pump();
  Pages.Info.EmptyErrorCount();
  Pages.Info.InfoPage();
  main.Window.Visible = true;
  Config.Adapters.Restore([this] { Acquisition.Capture.FillAdapterList(); });
  Config.Adapters.ShowAdvice(platform_.Capture.Advice());
  ListPrinters();
  Tabs.OpenLastTab(lastTab);
  main.TabStrip1.Visible = true;
  main.Window.State = platform::WindowState::Maximized;
  Layout.FormResize();
}

void Application::ListPrinters() {
  if (platform_.Printers == nullptr) {
    // A face without any has nothing to tell its user about.
    Windows.Main.Command1.Enabled = false;
    return;
  }
  Config.Printers.PrinterList(true, true);
  Config.Printers.SelectStored();
}

/// Each view brings up its own state. The order counts: what is assigned raises the events of a
/// user's own change, which save all settings and ask other views for theirs.
void Application::LoadViews() {
  Acquisition.ReserveMemory();
  Pages.Info.ShowProgramNames();
  Tabs.Load();
  for (packetroutines::View* view : Pages.All) view->Load();
  LiveViews.Values.ShowChannelNames();
  Config.View.FillUnitLists();
  LiveViews.Values.FillFormatList();
  LiveViews.Values.ClearValues();
  Acquisition.Load();
  Config.View.LoadStreams();
  Acquisition.SetFlags();
  Config.Present.ActiveStream = 1;
  Recorder.Trigger.ShowStored();
  Recorder.Session.ShowFileFormat();
  Recorder.Trigger.SelectStored();
  Config.View.SelectFirstStation();
  LiveViews.Scope.SelectPan();
}

}  // namespace formroutines
