#include "report/reports.h"

namespace subroutines {

namespace {

PrintParts PartsOf(forms::Main& main, PrintNotice& notice, const ReportServices& services) {
  return {.Setup = main,
          .Notice = notice,
          .Printers = services.Printers,
          .Surface = services.Surface,
          .Calendar = services.Calendar,
          .Program = services.Usual.Program};
}

}  // namespace

Reports::Reports(forms::Windows& windows, config::Configuration& config,
                 packetroutines::Acquisition& acquisition, const ReportServices& services)
    : Analysis(windows.Main, windows.Main, config.Settings, config.Present, services.Code,
               services.Usual),
      View({.Report = windows.Main,
            .Shared = windows.Main,
            .Stations = config.Stations,
            .State = acquisition.State,
            .Capture = acquisition.Capture,
            .Analysis = Analysis,
            .Code = services.Code,
            .Calendar = services.Calendar},
           services.Usual.Events, services.Usual.Program),
      Finder({.Look = windows.IDlook, .Setup = windows.Main, .Shared = windows.Main},
             acquisition.State, acquisition.Run, config.Settings, config.Stored,
             acquisition.Capture, {.Last = acquisition.Packets.Bytes(), .Code = services.Code},
             services.Usual),
      Notice(windows.Main.StatusBar1.Panels[forms::status_panel::Printer]),
      Sheet(View, windows.Main, windows.Main.QuietLine[forms::quiet_line::Report],
            services.Usual.Dialogs, PartsOf(windows.Main, Notice, services)),
      Waveforms({.Scope = windows.Main,
                 .Shared = windows.Main,
                 .Window = windows.Main,
                 .Settings = config.Settings,
                 .Numbers = services.Numbers,
                 .Dialogs = services.Usual.Dialogs,
                 .Clipboard = services.Clipboard},
                PartsOf(windows.Main, Notice, services)) {
  acquisition.Upper.Report = View;
  acquisition.Upper.Finder = Finder;
}

}  // namespace subroutines
