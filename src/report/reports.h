#pragma once

#include "capture/acquisition.h"
#include "config/configuration.h"
#include "forms/windows.h"
#include "platform/services/calendar.h"
#include "platform/services/clipboard.h"
#include "platform/services/code_page.h"
#include "platform/services/print_surface.h"
#include "platform/services/services.h"
#include "platform/services/system_services.h"
#include "report/print_notice.h"
#include "report/print_out.h"
#include "report/report_analysis.h"
#include "report/report_print.h"
#include "report/report_view.h"
#include "report/stream_finder.h"
#include "report/waveform_print.h"

namespace subroutines {

/// What the reports use of the platform.
struct ReportServices {
  platform::Services Usual;
  const platform::CodePage& Code;
  const platform::NumberText& Numbers;
  const platform::Calendar& Calendar;
  platform::Printers& Printers;
  platform::PrintSurface& Surface;
  /// Where there is one.
  platform::Clipboard* Clipboard;
};

/// What is read of single frames, the Report view and the stream finder, and what is printed.
class Reports {
 public:
  Reports(forms::Windows& windows, config::Configuration& config,
          packetroutines::Acquisition& acquisition, const ReportServices& services);

  packetroutines::ReportAnalysis Analysis;
  ReportView View;
  packetroutines::StreamFinder Finder;
  PrintNotice Notice;
  ReportPrint Sheet;
  WaveformPrint Waveforms;
};

}  // namespace subroutines
