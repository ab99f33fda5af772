#include "shell/application.h"

#include "base/failure.h"
#include "base/trap.h"

namespace formroutines {

Application::Application(const Platform& platform)
    : Main(platform.Timers),
      IDlook(platform.Timers),
      platform_(platform),
      services_{platform.Events, platform.Dialogs, platform.Program},
      stored_(platform.Store, platform.Numbers, Settings),
      capture_(platform.Capture, {Main, Main, Main, Main.Buttons()}, Settings, State, dispatcher_,
               services_),
      trouble_(platform.Dialogs, tabs_),
      locator_(State, trouble_, platform.Program),
      builder_(State, Block, Rings, Present, Main, platform.Numbers, trouble_, platform.Program),
      dispatcher_(State, Settings, Present, {Main, Main, Main}, capture_, locator_, builder_,
                  {*this, *this, *this, *this},
                  {platform.Numbers, platform.Code, platform.Events, platform.Dialogs, trouble_,
                   platform.Program}),
      context_{Settings, Present, State, Block, capture_, Main, platform.Events, platform.Numbers},
      values_(Main, Main, Main, stored_, context_),
      scope_(Main, Main, stored_, context_),
      phasors_(Main, platform.PhasorPicture, State, Present, platform.Numbers),
      phases_(Main, phasors_, context_),
      setup_({Main, Main, Main}, Settings, Present, stored_, platform.Numbers, *this,
             platform.Folders),
      adapters_(Main, Settings, stored_),
      printers_(Main, Main, Settings, stored_, platform.Printers, platform.Dialogs,
                platform.Program),
      recorderServices_{services_,         platform.Files,   platform.Numbers, platform.Code,
                        platform.Calendar, platform.Pointer, platform.Links},
      writing_(Main, Settings, Present, State, Rings, recorderServices_),
      analysis_({Settings, Present, State, writing_.Formats, writing_.Open, recorderServices_},
                dispatcher_.Bytes(), Main),
      recording_(Main, Main, Settings, stored_, State, capture_, writing_, analysis_,
                 recorderServices_),
      trigger_(Main, Main, Settings, platform.Numbers),
      tabs_(Main, Settings, Present, stored_, State, capture_, services_, platform.Files, *this,
            platform.Timers),
      watchdog_(State, Main, Main.Buttons(), capture_, tabs_, *this, services_),
      restart_(State, Settings, Main, Main.Buttons(), capture_, platform.Events),
      release_(Main, Main.Buttons()),
      waiting_(State, Settings, Present, Main, Main.Buttons(), capture_, platform.Timers,
               platform.Numbers),
      frameAnalysis_(Main, Main, Settings, Present, platform.Code, services_),
      report_({Main, Main, State, capture_, frameAnalysis_, platform.Code}, platform.Events,
              platform.Program),
      printNotice_(Main.StatusBar1.Panels[forms::status_panel::Printer]),
      printing_{Main,
                printNotice_,
                platform.Printers,
                platform.Surface,
                platform.Calendar,
                platform.Program},
      reportPrint_(report_, Main, Main.QuietLine[forms::quiet_line::Report], platform.Dialogs,
                   printing_),
      waveformPrint_(
          {Main, Main, Main, Settings, platform.Numbers, platform.Dialogs, platform.Clipboard},
          printing_),
      finder_({IDlook, Main, Main, Main}, State, Settings, stored_, capture_,
              {dispatcher_.Bytes(), platform.Code}, services_),
      pages_({Main, Main, Main, Main}, Revisionhistory, Settings, Present, platform.Numbers,
             platform.Printers, platform.Links, platform.Program),
      resize_(Main, State, platform.Program) {
  writing_.End = recording_;
  stored_.StatusUpdate = [this] { pages_.StatusUpdate(); };
  tabs_.OtherForms = {&Revisionhistory.Window, &DebugWindow.Window, &IDlook.Window};
  resize_.PassFirstTab = [this] { tabs_.PassFirstTab(); };
  resize_.ReturnToTab = [this](std::int16_t tab) { tabs_.ReturnToTab(tab); };
  resize_.RecordingInHand = [this] { return recording_.InHand(); };
  resize_.DrawPhasorGrid = [this] { phasors_.DrawPhasorGrid(); };
  Main.Command8.Click = [this] { platform_.Program.End(); };
  capture_.Stopped = [this] {
    waiting_.CaptureStopped();
    finder_.CaptureStopped();
  };
  capture_.Refused = [this] { finder_.CaptureRefused(); };
}

void Application::EndSession() {
  // The program may already be leaving a view; what its pumps bring must start nothing here either.
  ++State.Leaving;
  platform::RunSteps(
      platform_.Program, [](const platform::Failure&) { return platform::Verdict::SkipStep; },
      [this] { capture_.StopCapture(); }, [this] { packetroutines::ClearModes(State); });
  platform_.Program.End();
}

void Application::RebuildBlockArrays(std::int32_t baseSamples) {
  Block.Rebuild(baseSamples);
}
void Application::StationChosen() {
  // A mode without its button is left over from a run that got no data.
  const bool running =
      State.CaptureRunning ||
      packetroutines::AnyModeSet(State, [this](const packetroutines::Mode& mode) {
        return packetroutines::IsLiveView(mode) && mode.RunButton(Main.Buttons()).Value;
      });
  if (!running) return;
  // The other station has its samples elsewhere in its frames, and may have fewer of them: where
  // they cannot be located it reads as silent, and nothing of the block that the old one began may
  // stay in it.
  locator_.Forget();
  ++State.StationChanges;
  Block.Rebuild(Block.SignalValues.Rows());
}
void Application::ShowChannelNames() {
  values_.ShowChannelNames();
}
void Application::CalculateValues() {
  values_.CalculateValues();
}
void Application::ClearValues() {
  values_.ClearValues();
}

void Application::BlockShown() {
  waiting_.BlockShown();
}

void Application::PlotBlock(const char* mode) {
  scope_.PlotBlock(mode);
}

void Application::UpdatePhases() {
  phases_.UpdatePhases();
}

void Application::WriteRecordBlock(std::int16_t stream) {
  writing_.Samples.WriteRecordBlock(stream);
}

void Application::ShowFileFormat() {
  recording_.ShowFileFormat();
}

std::string Application::ReportAnalyse(const packetroutines::PacketBytes& bytes) {
  return report_.ReportAnalyse(bytes);
}

void Application::ReportLayout() {
  report_.ReportLayout();
}

void Application::AddStreamToList(const std::string& id) {
  finder_.AddStreamToList(id);
}

void Application::UnloadIDlook() {
  finder_.Unload();
}

}  // namespace formroutines
