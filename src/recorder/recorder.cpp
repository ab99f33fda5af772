#include "recorder/recorder.h"

#include <string>

namespace subroutines {

using platform::Crlf;

Recorder::Recorder(forms::Main& main, config::Configuration& config,
                   packetroutines::Acquisition& acquisition, const RecorderServices& services)
    : Open(services.Files),
      Analysis({config.Settings, config.Present, acquisition.State.RecordFileName, services.Files,
                acquisition.State.LookingForRecording},
               acquisition.Packets.Bytes(), main,
               {services.Code, services.Numbers, services.Calendar, services.Pointer,
                services.Usual.Dialogs, services.Links, services.Usual.Program, Open}),
      Context{config.Settings, config.Present, acquisition.State, acquisition.Rings,
              services.Files,  Open,           services.Numbers,  services.Code},
      Sheets(Open, services.Numbers, services.Code),
      TextWriter(Context),
      SheetWriter(Context, Sheets, Session),
      ComtradeWriter(Context),
      DiskReport(main, services.Files, services.Calendar, services.Numbers),
      Writers{TextWriter, SheetWriter, ComtradeWriter, Sheets, DiskReport},
      Samples(Context, Writers, main, Session, services.Usual.Program),
      Session(main, acquisition.Run, config.Settings, config.Stored, acquisition.State,
              acquisition.Capture, {Context, Writers, Samples, Analysis},
              {services.Usual, services.Calendar}),
      Trigger(main, main, config.Settings, services.Numbers),
      main_(main),
      config_(config),
      acquisition_(acquisition),
      services_(services) {
  acquisition.Upper.Recorder = static_cast<packetroutines::RecordConsumer&>(*this);
}

void Recorder::Load() {
  Session.Load();
  Trigger.Load();
}

void Recorder::Withdraw() {
  main_.CWButton3.Visible = false;
}

void Recorder::Hide() {
  main_.Command9.Visible = false;
  main_.CWGraph2.Visible = false;
  main_.CWGraph2.TrackMode = platform::CWGraph::PanMode;
  main_.Picture1[forms::logo::Recorder].Visible = false;
}

void Recorder::Show(const platform::Routine& run) {
  main_.Picture1[forms::logo::Recorder].Visible = true;
  main_.CWButton3.Visible = true;
  acquisition_.State.RecorderBusy = true;
  run([&] { main_.CWButton3.Value = false; },
      [&] {
        for (platform::OptionButton& format : main_.Option2) format.Enabled = true;
      },
      [&] { Session.ShowFileFormat(); },
      [&] {
        acquisition_.State.RecorderBusy = false;
        ResetProgress();
      },
      [&] {
        if (PathExists(services_.Files, config_.Settings.StoragePath)) {
          ShowPaths();
        } else {
          RefusePath(run);
        }
      });
}

void Recorder::ResetProgress() {
  main_.Label10[forms::record_line::SecondPath].Visible = false;
  platform::Label& progress = main_.Label10[forms::record_line::Progress];
  progress.ForeColor = platform::Rgb{0, 0, 0};
  progress.FontBold = false;
  progress.Caption = "0s / 0 samples";
}

void Recorder::RefusePath(const platform::Routine& run) {
  run([&] { services_.Usual.Events.Pump(); },
      [&] {
        services_.Usual.Dialogs.Show(
            {"Attention",
             std::string("The given path under 'Setup' is not available!") + Crlf +
                 "Please check the specified path for errors.",
             platform::Icon::Exclamation});
      },
      [&] { main_.Text1[forms::setup_field::StoragePath].SetFocus(); },
      [&] { main_.TabStrip1.SelectedTab = forms::tab::Setup; },
      [&] { acquisition_.Upper.Tabs->TabChange(); });
}

void Recorder::ShowPaths() {
  // The name that stands for a recording until its start, whatever the format is.
  const std::string placeholder =
      packetroutines::RecordPlaceholder(packetroutines::RecordFormats[forms::record_format::Text]);
  std::string& name = acquisition_.State.RecordFileName;
  if (name.empty()) name = placeholder;
  const auto path = [&](const std::string& file) {
    return packetroutines::RecordPath(services_.Files, config_.Settings, file);
  };
  main_.Label10[forms::record_line::FirstPath].Caption = path(placeholder);
  main_.Label10[forms::record_line::SecondPath].Caption =
      path(packetroutines::SecondPrefix + placeholder);
  if (config_.Stations.HasSecondStream()) {
    main_.Label10[forms::record_line::SecondPath].Visible = true;
  }
}

}  // namespace subroutines
