// The load of the main window, step by step.

#include <string>

#include "platform/failure.h"
#include "platform/number_text.h"
#include "platform/stream_format.h"
#include "shell/application.h"

namespace formroutines {

using platform::Crlf;
using platform::Rgb;

void Application::Load() {
  Main.Window.Loaded = true;
  CheckScreen();
  stored_.LoadSettings();
  PrepareStorage();
  FormSetup();
}

void Application::CheckScreen() {
  if (platform_.Screen.Width >= platform::MinimumWidth &&
      platform_.Screen.Height >= platform::MinimumHeight)
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
  printers_.PrinterList(true, true);
  printers_.SelectStored();
  tabs_.OpenLastTab(lastTab);
  Main.TabStrip1.Visible = true;
  Main.Window.State = platform::WindowState::Maximized;
  resize_.FormResize();
}

/// Each view brings up its own state. The order counts: what is assigned raises the events of a
/// user's own change, which save all settings and ask other views for theirs.
void Application::LoadViews() {
  ReserveMemory();
  pages_.ShowProgramNames();
  tabs_.Load();
  scope_.Load();
  setup_.LoadFields();
  LoadRecorder();
  values_.Load();
  phases_.Load();
  LoadReport();
  values_.ShowChannelNames();
  setup_.FillUnitLists();
  values_.FillFormatList();
  values_.ClearValues();
  release_.Load();
  setup_.LoadStreams();
  SetFlags();
  LoadTrigger();
  setup_.SelectFirstStation();
  scope_.SelectPan();
}

void Application::ReserveMemory() {
  const double seconds = static_cast<double>(Settings.BeforeTriggerWaveTime) +
                         static_cast<double>(Settings.AfterTriggerWaveTime);
  Rings.Reserve(platform::Round<std::int32_t>(seconds * platform::SamplesASecond));
}

void Application::LoadRecorder() {
  Main.CWButton3.BackColor = Rgb{237, 246, 240};
  Main.Frame4.Visible = false;
  // The choice shows that there is one; the stored setting is selected later on.
  const std::int16_t stored = Settings.SingleTrigger;
  Main.Option1[forms::trigger_kind::Immediate].Value = true;
  Settings.SingleTrigger = stored;
  // The quick view of a recording has the colours of the scope.
  for (std::size_t i = 0; i < Main.CWGraph2.Plots.size(); ++i) {
    Main.CWGraph2.Plots[i].LineColor = Main.CWGraph1.Plots[i].LineColor.Get();
  }
}

void Application::LoadReport() {
  Main.Command2.BackColor = Rgb{237, 246, 254};
  Main.Command4.Enabled = false;
  for (platform::Label& title : Main.Label7) title.Caption = std::string();
  for (platform::Label& value : Main.Label8) value.Caption = std::string();
  Main.Label8[0].Caption = "- - - -";
}

void Application::SetFlags() {
  State.PacketLengthPending = true;
  State.RealTimeChannel = 1;
  Present.ActiveStream = 1;
}

void Application::LoadTrigger() {
  Main.Text3[forms::trigger_field::Current].Text =
      platform_.Numbers.General(Settings.CurrentTriggerWave);
  Main.Text3[forms::trigger_field::Voltage].Text =
      platform_.Numbers.General(Settings.VoltageTriggerWave);
  Main.Text3[forms::trigger_field::Before].Text =
      platform_.Numbers.General(Settings.BeforeTriggerWaveTime);
  Main.Text3[forms::trigger_field::After].Text =
      platform_.Numbers.General(Settings.AfterTriggerWaveTime);
  Main.Text3[forms::trigger_field::Pause].Text = platform_.Numbers.General(Settings.TriggerPause);
  ShowFileFormat();
  switch (Settings.SingleTrigger) {
    case 1:
      Main.Option1[forms::trigger_kind::Continuous].Value = true;
      break;
    case 0:
      Main.Option1[forms::trigger_kind::Single].Value = true;
      break;
    case -1:
      Main.Option1[forms::trigger_kind::Immediate].Value = true;
      break;
    default:
      break;
  }
}

}  // namespace formroutines
