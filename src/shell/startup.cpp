// The load of the main window, step by step.

#include <string>

#include "base/failure.h"
#include "base/number_text.h"
#include "platform/stream_format.h"
#include "shell/application.h"

namespace formroutines {

using platform::Crlf;

void Application::Load() {
  Main.Window.Loaded = true;
  CheckScreen();
  stored_.LoadSettings();
  PrepareStorage();
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

void Application::PrepareStorage() {
  platform::FileSystem& files = platform_.Files;
  if (Settings.StoragePath == config::DefaultStoragePath) {
    Settings.StoragePath = files.DefaultFolder();
  }
  // Any other folder is the user's own: one that is missing may lie on a disk that is not there.
  if (Settings.StoragePath == files.DefaultFolder()) files.MakeFolder(Settings.StoragePath);
}

void Application::FormSetup() {
  Main.Window.State = platform::WindowState::Minimized;
  Main.TabStrip1.Visible = false;
  // Selecting tabs while the views are loaded overwrites the shared value.
  const std::int16_t lastTab = Settings.MainActiveTab;
  try {
    LoadViews();
  } catch (const platform::Failure& failure) {
    throw stored_.WithWayOut(failure, "A stored setting is outside of what the program can take.");
  }
  platform_.Events.Pump();
  pages_.EmptyErrorCount();
  pages_.InfoPage();
  Main.Window.Visible = true;
  adapters_.Restore([this] { capture_.FillAdapterList(); });
  adapters_.ShowAdvice(platform_.Capture.Advice());
  ListPrinters();
  tabs_.OpenLastTab(lastTab);
  Main.TabStrip1.Visible = true;
  Main.Window.State = platform::WindowState::Maximized;
  resize_.FormResize();
}

void Application::ListPrinters() {
  if (platform_.Printers == nullptr) {
    // A face without any has nothing to tell its user about.
    Main.Command1.Enabled = false;
    return;
  }
  printers_.PrinterList(true, true);
  printers_.SelectStored();
}

/// Each view brings up its own state. The order counts: what is assigned raises the events of a
/// user's own change, which save all settings and ask other views for theirs.
void Application::LoadViews() {
  ReserveMemory();
  pages_.ShowProgramNames();
  tabs_.Load();
  scope_.Load();
  setup_.LoadFields();
  recording_.Load();
  trigger_.Load();
  values_.Load();
  phases_.Load();
  report_.Load();
  values_.ShowChannelNames();
  setup_.FillUnitLists();
  values_.FillFormatList();
  values_.ClearValues();
  release_.Load();
  setup_.LoadStreams();
  SetFlags();
  trigger_.ShowStored();
  recording_.ShowFileFormat();
  trigger_.SelectStored();
  setup_.SelectFirstStation();
  scope_.SelectPan();
}

void Application::ReserveMemory() {
  const double seconds = static_cast<double>(Settings.BeforeTriggerWaveTime) +
                         static_cast<double>(Settings.AfterTriggerWaveTime);
  Rings.Reserve(platform::Round<std::int32_t>(seconds * platform::SamplesASecond));
}

void Application::SetFlags() {
  State.PacketLengthPending = true;
  State.RealTimeChannel = 1;
  Present.ActiveStream = 1;
}

}  // namespace formroutines
