#pragma once

#include "base/number_text.h"
#include "capture/acquisition_state.h"
#include "capture/block_arrays.h"
#include "capture/button_release.h"
#include "capture/capture_session.h"
#include "capture/consumers.h"
#include "capture/no_data_watchdog.h"
#include "capture/packet_dispatcher.h"
#include "capture/record_rings.h"
#include "capture/retry_box.h"
#include "capture/run_control.h"
#include "capture/sample_locator.h"
#include "capture/signal_builder.h"
#include "capture/stream_watch.h"
#include "capture/view_restart.h"
#include "capture/waiting_line.h"
#include "config/configuration.h"
#include "forms/main_form.h"
#include "platform/loop/timer_queue.h"
#include "platform/services/capture_object.h"
#include "platform/services/code_page.h"
#include "platform/services/services.h"

namespace packetroutines {

/// What the acquisition uses of the platform.
struct AcquisitionServices {
  platform::CaptureLayer& Capture;
  platform::TimerQueue& Timers;
  const platform::CodePage& Code;
  const platform::NumberText& Numbers;
  platform::Services Usual;
};

/// The acquisition as a whole: the state of a run, the frames from the capture channel to the
/// block, and the timers that keep a live view going. The folders above plug into it, and work with
/// the parts that are public.
class Acquisition : private CaptureUser, private config::BlockUser {
 public:
  Acquisition(forms::Main& main, config::Configuration& config,
              const AcquisitionServices& services);

  /// No button is locked at the start.
  void Load() { Release.Load(); }
  /// What the rings of a recording need for the trigger times of the settings.
  void ReserveMemory();
  /// The flags of a start, behind what the settings have brought up.
  void SetFlags();
  /// Capture is stopped and every mode ends, for good; for the end that cannot wait.
  void End();

  AcquisitionState State;
  BlockArrays Block;
  RecordRings Rings;
  /// Where the folders above plug themselves in.
  Plugs Upper;

  RetryBox Retry;
  RunControl Run;
  CaptureSession Capture;
  SampleLocator Locator;
  SignalBuilder Builder;
  StreamWatch Watch;
  WaitingLine Waiting;
  PacketDispatcher Packets;
  NoDataWatchdog Watchdog;
  ViewRestart Restart;
  ButtonRelease Release;

 private:
  void CaptureStopped() override;
  void ReportEnded() override;
  void CaptureRefused() override;
  void StationChosen() override;
  void RebuildBlockArrays(std::int32_t baseSamples) override { Block.Rebuild(baseSamples); }

  forms::RunButtons buttons_;
  config::Settings& settings_;
  platform::Program& program_;
};

}  // namespace packetroutines
