// The load of the main window, step by step.

#include <array>
#include <string>

#include "config/program_facts.h"
#include "platform/failure.h"
#include "shell/application.h"

namespace formroutines {

using platform::Crlf;
using platform::Rgb;

namespace {

constexpr std::int32_t DefaultBaseSamples = 400;
/// The run buttons come back this long after the first frame or a stop, in ms.
constexpr std::int32_t ButtonLock = 1000;
constexpr double RingRate = 4000;

constexpr std::array<Rgb, 8> PlotColours = {Rgb{0, 0, 0},     Rgb{255, 0, 0},    Rgb{0, 0, 255},
                                            Rgb{96, 96, 96},  Rgb{0, 255, 0},    Rgb{255, 0, 255},
                                            Rgb{0, 255, 255}, Rgb{128, 128, 128}};
/// The markers of a plot follow its line, but for the neutral current.
constexpr std::size_t NeutralCurrent = 3;
constexpr Rgb NeutralMarker{192, 192, 192};
constexpr Rgb FrameColour{248, 251, 254};

void Hide(std::initializer_list<platform::Control*> controls) {
  for (platform::Control* control : controls) control->Visible = false;
}

}  // namespace

void Application::Load() {
  Main.Window.Loaded = true;
  CheckScreen();
  stored_.LoadSettings();
  PrepareStorage();
  Main.Window.State = platform::WindowState::Minimized;
  Main.TabStrip1.Visible = false;
  // Selecting tabs while the form is set up overwrites the shared value.
  const std::int16_t lastTab = Settings.MainActiveTab;
  try {
    FormSetup();
  } catch (const platform::Failure& failure) {
    throw stored_.WithWayOut(failure, "A stored setting is outside of what the program can take.");
  }
  platform_.Events.Pump();
  Main.StatusBar1.Panels[3].Text = std::string();
  pages_.InfoPage();
  Main.Window.Visible = true;
  adapters_.Restore([this] { capture_.FillAdapterList(); });
  adapters_.ShowAdvice(platform_.Capture.Advice());
  printers_.PrinterList(true, true);
  if (Settings.PrinterChoice != 0) SelectPrinter();
  const bool known = lastTab > 0 && lastTab < forms::tab::Exit;
  if (known) Main.TabStrip1.SelectedTab = lastTab;
  tabs_.TabChange();
  Main.TabStrip1.Visible = true;
  Main.Window.State = platform::WindowState::Maximized;
  resize_.FormResize();
}

void Application::CheckScreen() {
  if (platform_.Screen.Width >= MinimumWidth && platform_.Screen.Height >= MinimumHeight) return;
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

void Application::SelectPrinter() {
  // A printer that is gone leaves the system's choice.
  if (Settings.PrinterChoice > 0 && Settings.PrinterChoice < Main.Combo2.ListCount()) {
    Main.Combo2.ListIndex = Settings.PrinterChoice;
  }
}

void Application::FormSetup() {
  ReserveMemory();
  Main.Window.Caption = config::ProgramCaption();
  Main.Label13.Caption = std::string(config::ProgramName) + " " + config::ProgramVersion;
  HideControls();
  SetColours();
  SetPlots();
  HideGraphs();
  SetFields();
  FillLists();
  SetDerived();
  SetFlags();
  SetTriggerFields();
  SelectStations();
}

void Application::ReserveMemory() {
  const double seconds = static_cast<double>(Settings.BeforeTriggerWaveTime) +
                         static_cast<double>(Settings.AfterTriggerWaveTime);
  Rings.Reserve(platform::Round<std::int32_t>(seconds * RingRate));
}

void Application::HideControls() {
  Hide({&Main.Command8, &Main.Command9, &Main.Check5, &Main.CWButton3, &Main.CWButton4,
        &Main.Command2, &Main.Command4, &Main.CWGraph1, &Main.Frame1, &Main.Frame4, &Main.Picture3,
        &Main.Picture5, &Main.Picture6});
  Main.CWButton4.Value = false;
  Main.CWButton1.Value = false;
  Main.Command4.Enabled = false;
}

void Application::SetColours() {
  Main.TabStrip1.ColorFrom = Rgb{255, 255, 255};
  Main.TabStrip1.ColorTo = Rgb{52, 153, 254};
  Main.TabStrip1.Left = 0;
  Main.TabStrip1.Top = 0;
  Main.TabStrip1.SelectedTab = forms::tab::Info;
  Main.Frame2.BackColor = FrameColour;
  Main.Frame3.BackColor = FrameColour;
  Main.CWButton2.BackColor = FrameColour;
  Main.CWButton1.BackColor = Main.Frame1.BackColor.Get();
  Main.CWButton3.BackColor = Rgb{237, 246, 240};
  Main.CWButton4.BackColor = Rgb{204, 229, 254};
  Main.Command2.BackColor = Rgb{237, 246, 254};
}

void Application::SetPlots() {
  for (std::size_t i = 0; i < Main.Check2.size(); ++i) {
    platform::Plot& plot = Main.CWGraph1.Plots[i];
    plot.LineColor = PlotColours[i];
    plot.PointColor = i == NeutralCurrent ? NeutralMarker : PlotColours[i];
    plot.Visible = false;
    // The quick view of a recording has the same eight channels.
    Main.CWGraph2.Plots[i].LineColor = PlotColours[i];
    Main.Check2[i].Value = Settings.SensorEnabled[i];
    Main.Check2[i].ForeColor = plot.LineColor.Get();
  }
}

void Application::HideGraphs() {
  for (platform::PictureBox& logo : Main.Picture1) logo.Visible = false;
  Hide({&Main.CWGraph1, &Main.CWGraph2, &Main.Frame1});
  Main.CWGraph1.ScreenLook = true;
}

void Application::SetFields() {
  Present.BaseSamples = DefaultBaseSamples;
  Main.Text1[forms::setup_field::Samplings].Text = platform_.Numbers.General(DefaultBaseSamples);
  Hide({&Main.Check5, &Main.CWButton4});
  // The choice shows that there is one; the stored setting is selected later on.
  const std::int16_t stored = Settings.SingleTrigger;
  Main.Option1[forms::trigger_kind::Immediate].Value = true;
  Settings.SingleTrigger = stored;
  Main.Check4.Value = Settings.ACDC ? 1 : 0;
  Main.Check6.Value = 1;
  for (platform::Shape& indicator : Main.Shape12) indicator.Visible = false;
  Main.Text1[forms::setup_field::FilterCondition].Text = Settings.FilterString;
  Main.Text1[forms::setup_field::StoragePath].Text = Settings.StoragePath;
  for (platform::Label& title : Main.Label7) title.Caption = std::string();
  for (platform::Label& value : Main.Label8) value.Caption = std::string();
}

void Application::FillLists() {
  Main.Grid1.Cell[0][1] = "absolute";
  Main.Grid1.Cell[0][2] = "phase";
  Main.Grid1.ColumnWidth[0] = 2950;
  Main.Grid1.ColumnWidth[1] = 1300;
  Main.Grid1.ColumnWidth[2] = 1300;
  for (const char* scale : {"100", "200", "500", "1000", "2000", "5000", "10000"}) {
    Main.Combo5[forms::full_scale::Current].AddItem(scale);
  }
  Main.Combo5[forms::full_scale::Current].ListIndex = 3;
  for (const char* scale : {"150", "200", "400", "500", "1000"})
    Main.Combo5[forms::full_scale::Voltage].AddItem(scale);
  Main.Combo5[forms::full_scale::Voltage].ListIndex = 2;
  for (platform::ComboBox& scale : Main.Combo5) scale.Enabled = false;
  values_.ShowChannelNames();
  setup_.FillUnitLists();
  values_.FillFormatList();
}

void Application::SetDerived() {
  Main.Combo3.ListIndex = Settings.UnitResolution;
  Main.Combo4[forms::unit_list::Current].ListIndex = Settings.UnitCurrent;
  Main.Combo4[forms::unit_list::Voltage].ListIndex = Settings.UnitVoltage;
  Present.UnitFormat = Main.Combo3.Text();
  values_.ClearValues();
  Main.Timer3.Enabled = false;
  Main.Timer3.Interval = ButtonLock;
  Main.Text1[forms::setup_field::BaseFrequency].Text =
      platform_.Numbers.General(Settings.BaseFrequency);
  Main.Text1[forms::setup_field::Content1].Text = Settings.FilterContent[0];
  Main.Text1[forms::setup_field::Interval].Text = platform_.Numbers.General(Settings.InternalDelay);
  Main.Text1[forms::setup_field::Content2].Text = Settings.FilterContent[1];
  if (Main.Option3[1].Caption.Get().empty()) {
    Hide({&Main.Option3[1], &Main.Option3[3], &Main.Option3[5], &Main.Option3[7]});
  }
  Main.Label8[0].Caption = "- - - -";
}

void Application::SetFlags() {
  State.PacketLengthPending = true;
  State.RealTimeChannel = 1;
  Present.ActiveStream = 1;
}

void Application::SetTriggerFields() {
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

void Application::SelectStations() {
  for (std::size_t pair = 0; pair < Main.Option3.size(); pair += 2) Main.Option3[pair].Value = true;
  Present.ActiveStream = 1;
  Main.sevOption1[forms::trigger_kind::Single].Value = true;
}

}  // namespace formroutines
