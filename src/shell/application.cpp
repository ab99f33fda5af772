#include "shell/application.h"

#include "platform/failure.h"
#include "platform/trap.h"

namespace formroutines {

Application::Application(const Platform& platform)
    : Main(platform.Timers),
      platform_(platform),
      file_(platform.Store, platform.Numbers, Settings),
      capture_(platform.Capture, Main, Settings, State, platform.Events, platform.Dialogs,
               platform.Program),
      trouble_(platform.Dialogs, tabs_),
      layout_(State, trouble_, platform.Program),
      builder_(State, Block, Rings, Session, Main, platform.Numbers, trouble_, platform.Program),
      dispatcher_(State, Settings, Session, Main, capture_, layout_, builder_,
                  {*this, *this, *this},
                  {platform.Numbers, platform.Code, platform.Events, platform.Dialogs, trouble_,
                   platform.Program}),
      values_(Main, Settings, Session, file_, State, Block, capture_, platform.Events,
              platform.Numbers),
      scope_(Main, Settings, Session, file_, State, Block, capture_, platform.Events),
      phasors_(Main, platform.PhasorPicture, State, Session, platform.Numbers),
      phases_(Main, Settings, Session, State, Block, capture_, phasors_, platform.Events,
              platform.Numbers),
      setup_(Main, Settings, Session, file_, platform.Numbers, *this, platform.Folders),
      adapters_(Main, Settings, file_),
      printers_(Main, Settings, file_, platform.Printers, platform.Dialogs, platform.Program),
      tabs_(Main, Settings, Session, file_, State, capture_, platform.Events, platform.Dialogs,
            platform.Program, platform.Files, *this, platform.Timers),
      watchdog_(State, Settings, Main, capture_, tabs_, *this, platform.Events, platform.Dialogs,
                platform.Program),
      waiting_(State, Settings, Session, Main, platform.Timers, platform.Numbers),
      pages_(Main, Revisionhistory, Settings, Session, platform.Numbers, platform.Printers,
             platform.Links, platform.Program),
      resize_(Main, State, platform.Program) {
  file_.StatusUpdate = [this] { pages_.StatusUpdate(); };
  tabs_.OtherForms = {&Revisionhistory.Window, &DebugWindow.Window};
  resize_.PassFirstTab = [this] { tabs_.PassFirstTab(); };
  resize_.ReturnToTab = [this](std::int16_t tab) { tabs_.ReturnToTab(tab); };
  resize_.DrawPhasorGrid = [this] { phasors_.DrawPhasorGrid(); };
  Main.Command8.Click = [this] { platform_.Program.End(); };
  capture_.aPacketX_OnPacket = [this](const platform::CapturedFrame& frame) {
    dispatcher_.aPacketX_OnPacket(frame);
  };
  capture_.Stopped = [this] { waiting_.CaptureStopped(); };
}

void Application::EndSession() {
  // The program may already be leaving a view; what its pumps bring must start nothing here either.
  ++State.Leaving;
  platform::RunSteps(
      platform_.Program, [](const platform::Failure&) { return platform::Verdict::SkipStep; },
      [this] { capture_.StopCapture(); }, [this] { State.ClearModes(); });
  platform_.Program.End();
}

void Application::RebuildBlockArrays(std::int32_t baseSamples) {
  Block.Rebuild(baseSamples);
}
void Application::StationChosen() {
  const bool running = State.CaptureRunning || State.LookingForValues || State.LookingForPhases ||
                       State.LookingForScope;
  if (!running) return;
  // The other station has its samples elsewhere in its frames, and may have fewer of them: nothing
  // of the block that the old one began may stay in it.
  State.OffsetsKnown[0] = false;
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

// The views below stand empty until they are built.
void Application::WriteRecordBlock(std::int16_t) {}
std::string Application::ReportAnalyse(const packetroutines::PacketBytes&) {
  return {};
}
void Application::AddStreamToList(const std::string&) {}
void Application::UnloadIDlook() {}
void Application::ShowFileFormat() {}
void Application::ReportLayout() {}

}  // namespace formroutines
