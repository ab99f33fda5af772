// What each tab brings to the screen.

#include <string>

#include "config/setup_view.h"
#include "recorder/writing/record_names.h"
#include "recorder/writing/text_format.h"
#include "shell/tab_controller.h"

namespace formroutines {

using platform::Crlf;

namespace {

/// The name that stands for a recording until its start, whatever the format is.
std::string PlaceholderOfText() {
  return packetroutines::RecordPlaceholder(packetroutines::TextFacts.Extension);
}

}  // namespace

void TabController::HideViews() {
  main_.Command2.Visible = false;
  main_.Command4.Visible = false;
  main_.Command9.Visible = false;
  main_.Picture4.Visible = false;
  main_.CWGraph1.Visible = false;
  main_.CWGraph2.Visible = false;
  main_.Frame1.Visible = false;
  main_.Frame2.Visible = false;
  main_.Label16.Visible = false;
  main_.Label17.Visible = false;
  main_.CWGraph2.TrackMode = platform::CWGraph::PanMode;
  for (platform::OptionButton& station : main_.Option3) station.Visible = false;
  for (platform::Label& value : main_.Label5) value.Visible = false;
  for (platform::PictureBox& logo : main_.Picture1) logo.Visible = false;
}

void TabController::ShowView() {
  switch (main_.TabStrip1.SelectedTab) {
    case forms::tab::Info:
      main_.Picture4.Visible = true;
      break;
    case forms::tab::Values:
      ShowValues();
      break;
    case forms::tab::Phasor:
      ShowPhasor();
      break;
    case forms::tab::Waveforms:
      ShowWaveforms();
      break;
    case forms::tab::Recorder:
      ShowRecorder();
      break;
    case forms::tab::Report:
      ShowReport();
      break;
    case forms::tab::Setup:
      main_.Picture1[forms::logo::Setup].Visible = true;
      break;
    default:
      break;
  }
}

void TabController::ChooseStation(std::size_t first) {
  main_.Option3[first].Visible = true;
  main_.Option3[present_.ActiveStream == 1 ? first : first + 1].Value = true;
  if (HasSecondStream()) main_.Option3[first + 1].Visible = true;
}

void TabController::ShowValues() {
  for (platform::Label& value : main_.Label5) value.Visible = true;
  main_.Picture1[forms::logo::Values].Visible = true;
  main_.Check5.Visible = true;
  main_.CWButton4.Visible = true;
  main_.Label16.Visible = true;
  ChooseStation(forms::station::Values);
}

void TabController::ShowPhasor() {
  state_.RecorderBusy = true;
  run_([&] { main_.CWButton2.Value = false; },
       [&] {
         main_.Frame2.Visible = true;
         main_.Picture1[forms::logo::Phasor].Visible = true;
         state_.RecorderBusy = false;
         main_.Label17.Visible = true;
       },
       [&] { ChooseStation(forms::station::Phasor); });
}

void TabController::ShowWaveforms() {
  main_.CWGraph1.Visible = true;
  main_.Frame1.Visible = true;
  main_.Picture1[forms::logo::Waveforms].Visible = true;
  ChooseStation(forms::station::Waveforms);
}

void TabController::ShowRecorder() {
  main_.Picture1[forms::logo::Recorder].Visible = true;
  main_.CWButton3.Visible = true;
  state_.RecorderBusy = true;
  run_([&] { main_.CWButton3.Value = false; },
       [&] {
         for (platform::OptionButton& format : main_.Option2) format.Enabled = true;
       },
       [&] { views_.ShowFileFormat(); }, [&] { state_.RecorderBusy = false; },
       [&] { ResetProgress(); },
       [&] {
         if (subroutines::PathExists(files_, settings_.StoragePath)) {
           ShowRecorderPaths();
         } else {
           RefuseStoragePath();
         }
       });
}

void TabController::ResetProgress() {
  main_.Label10[forms::record_line::SecondPath].Visible = false;
  main_.Label10[forms::record_line::Progress].ForeColor = platform::Rgb{0, 0, 0};
  main_.Label10[forms::record_line::Progress].FontBold = false;
  main_.Label10[forms::record_line::Progress].Caption = "0s / 0 samples";
}

void TabController::RefuseStoragePath() {
  run_([&] { services_.Events.Pump(); },
       [&] {
         services_.Dialogs.Show({"Attention",
                                 std::string("The given path under 'Setup' is not available!") +
                                     Crlf + "Please check the specified path for errors.",
                                 platform::Icon::Exclamation});
       },
       [&] { main_.Text1[forms::setup_field::StoragePath].SetFocus(); },
       [&] { main_.TabStrip1.SelectedTab = forms::tab::Setup; }, [&] { TabChange(); });
}

void TabController::ShowRecorderPaths() {
  const std::string placeholder = PlaceholderOfText();
  if (state_.RecordFileName.empty()) state_.RecordFileName = placeholder;
  const auto path = [&](const std::string& name) {
    return packetroutines::RecordPath(files_, settings_, name);
  };
  main_.Label10[forms::record_line::FirstPath].Caption = path(placeholder);
  main_.Label10[forms::record_line::SecondPath].Caption =
      path(packetroutines::SecondPrefix + placeholder);
  if (HasSecondStream()) main_.Label10[forms::record_line::SecondPath].Visible = true;
}

void TabController::ShowReport() {
  main_.Command2.Visible = true;
  main_.Command4.Visible = true;
  run_([&] { ChooseStation(forms::station::Report); }, [&] { views_.ReportLayout(); },
       [&] { main_.Picture1[forms::logo::Report].Visible = true; });
}

}  // namespace formroutines
