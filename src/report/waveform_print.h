#pragma once

#include <cstdint>

#include "base/number_text.h"
#include "config/settings.h"
#include "forms/shared_controls.h"
#include "forms/waveforms_controls.h"
#include "forms/window_controls.h"
#include "platform/services/clipboard.h"
#include "platform/services/dialogs.h"
#include "report/print_out.h"

namespace subroutines {

/// What the print of the waveforms shows, and where its copy goes.
struct WaveformPrintParts {
  forms::WaveformsControls& Scope;
  forms::SharedControls& Shared;
  forms::WindowControls& Window;
  const config::Settings& Settings;
  const platform::NumberText& Numbers;
  platform::Dialogs& Dialogs;
  /// Where there is one.
  platform::Clipboard* Clipboard;
};

/// Puts the graph of the Waveforms view on a landscape page with its legend, or its image on the
/// clipboard. For the time of a print the graph stands on a plain light ground.
class WaveformPrint {
 public:
  WaveformPrint(const WaveformPrintParts& parts, const PrintParts& print);

 private:
  void Command1_Click();
  void Command1_MouseDown(std::int16_t button);
  void Page();
  void PrintHeading();
  void PrintGraph();
  void PrintLegend();
  void PrintFooter();

  WaveformPrintParts parts_;
  PrintOut out_;
};

}  // namespace subroutines
