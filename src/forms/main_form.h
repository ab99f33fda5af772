#pragma once

#include "forms/information_controls.h"
#include "forms/phasor_controls.h"
#include "forms/recorder_controls.h"
#include "forms/report_controls.h"
#include "forms/run_buttons.h"
#include "forms/setup_controls.h"
#include "forms/shared_controls.h"
#include "forms/values_controls.h"
#include "forms/waveforms_controls.h"
#include "forms/window_controls.h"

namespace forms {

/// The main window: the controls of all views with the captions, tips and states of the design.
/// Each class takes of it what it touches.
class Main : public WindowControls,
             public TimerControls,
             public SharedControls,
             public InformationControls,
             public ValuesControls,
             public PhasorControls,
             public WaveformsControls,
             public RecorderControls,
             public ReportControls,
             public SetupControls {
 public:
  explicit Main(platform::TimerCount& timers) : TimerControls(timers) {}

  RunButtons Buttons() { return {CWButton1, CWButton2, CWButton3, CWButton4, Command2}; }
};

}  // namespace forms
