#pragma once

#include "base/number_text.h"
#include "capture/acquisition_state.h"
#include "capture/block_arrays.h"
#include "capture/capture_session.h"
#include "config/settings.h"
#include "forms/window_controls.h"
#include "platform/services/event_queue.h"

namespace subroutines {

/// What every live view works with: the settings, the state and the last block of the acquisition,
/// the capture that it starts and stops, and the platform's event queue and number texts.
struct ViewContext {
  config::Settings& Settings;
  config::RunSettings& Present;
  packetroutines::AcquisitionState& State;
  const packetroutines::BlockArrays& Block;
  packetroutines::CaptureSession& Capture;
  forms::TimerControls& Timers;
  platform::EventQueue& Events;
  const platform::NumberText& Numbers;
};

}  // namespace subroutines
