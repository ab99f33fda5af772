#pragma once

#include "base/number_text.h"
#include "capture/acquisition_state.h"
#include "capture/block_arrays.h"
#include "capture/capture_session.h"
#include "capture/run_control.h"
#include "config/settings.h"
#include "config/station_choice.h"
#include "config/stored_settings.h"
#include "platform/services/event_queue.h"

namespace subroutines {

/// What every live view works with: the settings and the stations that can be chosen, the state and
/// the last block of the acquisition, the runs that it begins and ends, and the platform's event
/// queue and number texts.
struct ViewContext {
  config::Settings& Settings;
  config::RunSettings& Present;
  StoredSettings& Stored;
  StationChoice& Stations;
  const packetroutines::AcquisitionState& State;
  packetroutines::ReadingFields& Readings;
  const packetroutines::BlockArrays& Block;
  packetroutines::CaptureSession& Capture;
  packetroutines::RunControl& Run;
  platform::EventQueue& Events;
  const platform::NumberText& Numbers;
};

}  // namespace subroutines
