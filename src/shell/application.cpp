#include "shell/application.h"

#include "platform/services/absent.h"

namespace formroutines {

Application::Application(const Platform& platform)
    : platform_(platform),
      Windows(platform.Timers),
      Config(Windows.Main,
             {platform.Store, platform.Numbers, platform::OrNone(platform.Folders),
              platform::OrNone(platform.Printers), platform.Dialogs, platform.Program}),
      Acquisition(
          Windows.Main, Config,
          {platform.Capture, platform.Timers, platform.Code, platform.Numbers, platform.Usual()}),
      LiveViews(Windows.Main, Config, Acquisition, platform.Events, platform.Numbers),
      Recorder(Windows.Main, Config, Acquisition,
               {platform.Usual(), platform.Code, platform.Numbers, platform.Files,
                platform.Calendar, platform::OrNone(platform.Pointer), platform.Links,
                platform.Timers, platform::OrNone(platform.Sleep), platform.Sync}),
      Reports(Windows, Config, Acquisition,
              {platform.Usual(), platform.Code, platform.Numbers, platform.Calendar,
               platform::OrNone(platform.Printers), platform::OrNone(platform.Surface),
               platform.Clipboard}),
      Pages(Windows, Config, LiveViews, Recorder, Reports, platform),
      Question(Windows.EndQuestion, Recorder.Session, platform.Calendar),
      Dropped(Windows.Main, Acquisition, Question, platform.Timers),
      Tabs(Windows, Config, Acquisition, Pages.All, Question, platform.Usual(), platform.Timers),
      Layout(Windows.Main, Acquisition.State, Tabs, Pages.All, platform.Program) {}

void Application::EndSession() {
  Acquisition.End();
  Recorder.EndSession();
  platform_.Program.End();
}

}  // namespace formroutines
