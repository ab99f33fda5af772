#pragma once

#include <cstdint>
#include <string>

#include "capture/acquisition_state.h"
#include "capture/capture_session.h"
#include "config/settings.h"
#include "config/stored_settings.h"
#include "forms/id_look.h"
#include "forms/setup_controls.h"
#include "forms/shared_controls.h"
#include "forms/window_controls.h"
#include "platform/services/services.h"
#include "report/seen_streams.h"

namespace packetroutines {

/// What the stream finder shows and fills in: its own window, the fields of the Setup view, the
/// choices of a station, and the timers that it stops.
struct FinderControls {
  forms::IDlook& Look;
  forms::SetupControls& Setup;
  forms::SharedControls& Shared;
  forms::TimerControls& Timers;
};

/// The window that listens to the bus, one frame at a time, and lists whoever sends. When it
/// closes, the first two senders that are checked become the content filters.
class StreamFinder {
 public:
  StreamFinder(const FinderControls& controls, AcquisitionState& state, config::Settings& settings,
               subroutines::StoredSettings& stored, CaptureSession& capture,
               const platform::Services& services);

  /// Adds the ID of a frame to the list, unless it is part of what was met before.
  void AddStreamToList(const std::string& id);
  /// Closes the window, if it is open.
  void Unload() { look_.Window.Unload(); }

 private:
  void Command7_Click();
  void Load();
  void Timer1_Timer();
  void List1_Click();
  void CloseOnce();
  void TakeStreamChoice();
  void ShowFrameCount();
  void FollowSearch();

  forms::IDlook& look_;
  FinderControls controls_;
  AcquisitionState& state_;
  config::Settings& settings_;
  subroutines::StoredSettings& stored_;
  CaptureSession& capture_;
  platform::Services services_;

  SeenStreams seenStreams_;
  /// Frames that were looked at since the window opened.
  std::uint64_t frames_ = 0;
  /// Frames that had been too long when the window opened.
  std::uint64_t tooLongBefore_ = 0;
  bool closing_ = false;
};

}  // namespace packetroutines
