#include "recorder/recorder.h"

#include <chrono>
#include <string>

#include "capture/record_progress.h"
#include "config/setup_view.h"

namespace subroutines {

using platform::Crlf;
namespace line = forms::record_line;

namespace {

/// How long the end of the program waits for a slow disk.
constexpr std::chrono::milliseconds LastSync{2000};

}  // namespace

Recorder::Recorder(forms::Main& main, config::Configuration& config,
                   packetroutines::Acquisition& acquisition,
                   const packetroutines::RecorderServices& services)
    : Writing(main, config.Settings, config.Present, acquisition.State, acquisition.Rings,
              services),
      Events({.Samples = Writing,
              .Watch = acquisition.Watch,
              .Capture = acquisition.Capture,
              .State = acquisition.State,
              .Setup = main}),
      Reading({config.Settings, config.Present, acquisition.State, Writing.Formats, Writing.Open,
               services},
              acquisition.Packets.Bytes(), main),
      Check({config.Settings, config.Present, acquisition.State, Writing.Formats, Writing.Open,
             services},
            main),
      Session(main, main.QuietLine[forms::quiet_line::Recorder], acquisition.Run, config.Settings,
              config.Stored, acquisition.State, acquisition.Capture, Writing, Events, services),
      Trigger(main, main, config.Settings, services.Numbers),
      main_(main),
      config_(config),
      state_(acquisition.State),
      upper_(acquisition.Upper),
      services_(services) {
  Writing.End = Session;
  Writing.Samples.Witness = Session.Rings();
  Session.Reader = Reading;
  Session.Check = Check;
  acquisition.Upper.Recorder = Writing.Samples;
  acquisition.Upper.Session = Session;
  acquisition.Waiting.Adapter = Session.Adapter();
}

void Recorder::Load() {
  Session.Load();
  Trigger.Load();
}

void Recorder::Withdraw() {
  main_.CWButton3.Visible = false;
}

void Recorder::Hide() {
  Check.Withdraw();
  main_.Command9.Visible = false;
  main_.CWGraph2.Visible = false;
  main_.CWGraph2.TrackMode = platform::CWGraph::PanMode;
  main_.Picture1[forms::logo::Recorder].Visible = false;
}

void Recorder::Interrupt(packetroutines::Leaving what) {
  const bool program = what == packetroutines::Leaving::Program;
  const bool otherTab = main_.TabStrip1.SelectedTab != Tab();
  Session.Interrupt(program    ? EndReason::Exit
                    : otherTab ? EndReason::OtherTab
                               : EndReason::TabAnew);
}

void Recorder::CloseFiles() {
  // Whatever else ends the program while one runs.
  Session.ProgramEnds();
  for (packetroutines::SampleFormat* format : Writing.Formats) format->Finish();
  Events.WriteRest();
  if (services_.Sync != nullptr) services_.Sync->Finish(LastSync);
}

void Recorder::Show(const platform::Routine& run) {
  main_.Picture1[forms::logo::Recorder].Visible = true;
  main_.CWButton3.Visible = true;
  state_.RecorderBusy = true;
  run([&] { main_.CWButton3.Value = false; },
      [&] {
        for (platform::OptionButton& format : main_.Option2) format.Enabled = true;
        Session.ShowFileFormat();
      },
      [&] {
        state_.RecorderBusy = false;
        ResetProgress();
        if (PathExists(services_.Files, config_.Settings.StoragePath)) {
          ShowPaths();
          Check.Offer();
        } else {
          RefusePath(run);
        }
      });
}

void Recorder::ResetProgress() {
  main_.Label10[line::SecondPath].Visible = false;
  platform::Label& progress = main_.Label10[line::Progress];
  progress.ForeColor = platform::Rgb{0, 0, 0};
  progress.FontBold = false;
  progress.Caption = packetroutines::RecordProgress(services_.Numbers, 0);
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
      [&] {
        main_.Text1[forms::setup_field::StoragePath].SetFocus();
        main_.TabStrip1.SelectedTab = forms::tab::Setup;
      },
      [&] { upper_.Tabs->TabChange(); });
}

void Recorder::ShowPaths() {
  // The name that stands for a recording until its start, whatever the format is.
  const std::string placeholder = packetroutines::RecordPlaceholder(Writing.Text.Facts.Extension);
  if (state_.RecordFileName.empty()) state_.RecordFileName = placeholder;
  const auto path = [&](const std::string& name) {
    return packetroutines::RecordPath(services_.Files, config_.Settings, name);
  };
  main_.Label10[line::FirstPath].Caption = path(placeholder);
  main_.Label10[line::SecondPath].Caption = path(packetroutines::SecondPrefix + placeholder);
  if (config_.Stations.HasSecondStream()) main_.Label10[line::SecondPath].Visible = true;
}

}  // namespace subroutines
